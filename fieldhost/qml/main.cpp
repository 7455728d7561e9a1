#include "fieldhost/qml/Screens.h"
#include "fieldhost/qml/translations/Translations.h"
#include "fieldhost/services/FieldApplication.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QRegularExpression>
#include <QTextStream>

namespace Tavro::FieldHost {

namespace {

int refuse(const QString &reason)
{
    QTextStream(stderr) << reason << "\nTry: ovo-fieldhost gui --help\n";
    return 2;
}

} // namespace

} // namespace Tavro::FieldHost

int main(int argc, char *argv[])
{
    using namespace Tavro::FieldHost;

    // touch screens are dense
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    const QApplication application(argc, argv); // the charts need one with widgets
    QCoreApplication::setApplicationName(QStringLiteral("ovo-fieldhost-gui"));
    FieldApplication host;

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Starts with dark colours.")});
    parser.addOption({QStringLiteral("language"),
                      QStringLiteral("The device's language, as de or de_CH. Default: the "
                                     "environment's."),
                      QStringLiteral("LOCALE")});
    parser.addOption({QStringLiteral("font-scale"),
                      QStringLiteral("Makes fonts larger by FACTOR, 1 to 2."),
                      QStringLiteral("FACTOR"), QStringLiteral("1")});
    parser.addOption({QStringLiteral("size"), QStringLiteral("Size of the window in pixels."),
                      QStringLiteral("WIDTHxHEIGHT"), QStringLiteral("1280x800")});
    parser.addOption({QStringLiteral("page"), QStringLiteral("Screen to start with."),
                      QStringLiteral("NAME"), QStringLiteral("export")});
    parser.process(application);

    static const QRegularExpression sizeForm(QStringLiteral("^(\\d{3,5})x(\\d{3,5})$"));
    const QRegularExpressionMatch size = sizeForm.match(parser.value(QStringLiteral("size")));
    if (!size.hasMatch()) {
        return refuse(QStringLiteral("--size needs a width and a height, such as 1280x800."));
    }
    bool isNumber = false;
    const double fontScale = parser.value(QStringLiteral("font-scale")).toDouble(&isNumber);
    if (!isNumber || fontScale < 1 || fontScale > 2) {
        return refuse(QStringLiteral("--font-scale needs a number from 1 to 2."));
    }

    const QString language = parser.value(QStringLiteral("language"));
    Tavro::Shared::GlobalLocaleData::instance()->setDeviceLocale(
        language.isEmpty() ? QLocale::system() : QLocale(language));
    registerScreens();
    QQmlApplicationEngine engine;
    const Translations translations(engine);
    engine.setInitialProperties({
        {QStringLiteral("page"), parser.value(QStringLiteral("page"))},
        {QStringLiteral("dark"), parser.isSet(QStringLiteral("dark"))},
        {QStringLiteral("fontScale"), fontScale},
        {QStringLiteral("width"), size.captured(1).toInt()},
        {QStringLiteral("height"), size.captured(2).toInt()},
    });
    engine.load(QUrl(QStringLiteral("qrc:/screens/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QApplication::exec();
}
