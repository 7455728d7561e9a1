// A host that copies a directory and shows its progress in QML.
#include "host/AppState.h"
#include "host/CApplicationSettings.h"
#include "host/CLogger.h"
#include "host/CoreApplication.h"
#include "shared/fileops/CFileCopyController.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QTextStream>

using Tavro::Shared::CFileCopyController;

namespace {

const char s_window[] = R"(
import QtQuick 2.15
import QtQuick.Window 2.15

Window {
    visible: true
    width: 400; height: 100

    Rectangle { // the bar
        width: copy.totalBytes > 0 ? parent.width * copy.processedBytes / copy.totalBytes : 0
        height: 40
        color: "steelblue"
    }
    Text {
        anchors.centerIn: parent
        text: outcome || copy.processedBytes + " of " + copy.totalBytes + " bytes"
    }
    MouseArea { // the copy pauses while the button is held
        anchors.fill: parent
        onPressed: copy.pause()
        onReleased: copy.resume()
    }
}
)";

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: copy-window SOURCE DESTINATION\n";
        return 2;
    }

    CFileCopyController copy; // its properties and signals are for QML as they are
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("copy"), &copy);
    engine.rootContext()->setContextProperty(QStringLiteral("outcome"), QString());
    engine.loadData(s_window);
    if (engine.rootObjects().isEmpty()) {
        return 1;
    }

    QObject::connect(&copy, &CFileCopyController::operationCompleted, &copy, [&] {
        const QString outcome =
            copy.lastResult().isWhole() ? QStringLiteral("copied") : QStringLiteral("not whole");
        engine.rootContext()->setContextProperty(QStringLiteral("outcome"), outcome);
        QTextStream(stdout) << outcome << Qt::endl;
    });
    copy.copyDirectory(arguments.at(1), arguments.at(2));
    return QGuiApplication::exec();
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
