// A host that copies a directory in the background and prints its progress.
#include "host/AppState.h"
#include "host/CApplicationSettings.h"
#include "host/CLogger.h"
#include "host/CoreApplication.h"
#include "shared/fileops/CFileCopyController.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstring>

using Tavro::Shared::CFileCopyController;
using Tavro::Shared::CFileOperationResult;

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream out(stdout);
    if (arguments.size() != 3) {
        out << "usage: copy-example SOURCE DESTINATION" << Qt::endl;
        return 2;
    }

    CFileCopyController copy;
    QObject::connect(&copy, &CFileCopyController::processedBytesChanged, &copy, [&] {
        out << copy.processedBytes() << " of " << copy.totalBytes() << " bytes" << Qt::endl;
    });
    QObject::connect(&copy, &CFileCopyController::operationCompleted, &copy, [&] {
        // emitted also when the copy has failed
        const CFileOperationResult result = copy.lastResult();
        if (result.isWhole()) {
            out << "copied" << Qt::endl;
        } else {
            const QStringList paths = result.unreadableDirectories + QStringList(result.path);
            out << "the copy is not whole: " << paths.join(QLatin1Char(' ')).trimmed() << ": "
                << std::strerror(result.systemError) << Qt::endl;
        }
        QCoreApplication::exit(result.isWhole() ? 0 : 1);
    });
    copy.copyDirectory(arguments.at(1), arguments.at(2));
    return QCoreApplication::exec();
}

// What the library calls in its host. A program without these functions does not link.
void Tavro::Logging::CLogger::logMessage(LogLevel level, const QString &category,
                                         const QString &message)
{
    // called from any thread: one write for each entry
    QTextStream(stderr)
        << QStringLiteral("%1 %2: %3\n").arg(static_cast<int>(level)).arg(category, message);
}

// Only ClipInfoHandler calls these. A host that records videos returns its own objects.
CApplicationSettings *CApplicationSettings::instance()
{
    return nullptr;
}

Tavro::AppLogic::CoreApplication *Tavro::AppLogic::CoreApplication::instance()
{
    return nullptr;
}

Tavro::AppState *Tavro::AppState::instance()
{
    return nullptr;
}
