// Copies a directory in the background and says how far it is.
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
        // a copy that failed has "completed", too: the result tells
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
