// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/Screens.h"
#include "fieldhost/qml/translations/Translations.h"
#include "fieldhost/services/FieldApplication.h"
#include "fieldhost/translations/Translators.h"
#include "shared/locale/GlobalLocaleData.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QQmlApplicationEngine>
#include <QRegularExpression>
#include <QTextStream>

using namespace Tavro::FieldHost;
using Tavro::Shared::GlobalLocaleData;

namespace {

const QString s_dark = QStringLiteral("dark");
const QString s_language = QStringLiteral("language");
const QString s_fontScale = QStringLiteral("font-scale");
const QString s_size = QStringLiteral("size");
const QString s_page = QStringLiteral("page");

QRegularExpressionMatch sizeOf(const QCommandLineParser &parser)
{
    static const QRegularExpression form(QStringLiteral("^([1-9]\\d{2,3})x([1-9]\\d{2,3})$"));
    return form.match(parser.value(s_size));
}

/** Translates what is wrong with the options, before there are screens. */
class OptionText
{
    Q_DECLARE_TR_FUNCTIONS(OptionText)
};

// why the options are not understood; empty when they are
QString objectionTo(const QCommandLineParser &parser)
{
    static const QRegularExpression pages(
        QStringLiteral("^(export|delete|form|recording|locale|device)$"));
    if (!parser.positionalArguments().isEmpty()) {
        return OptionText::tr("Nothing but options is expected.");
    }
    if (!sizeOf(parser).hasMatch()) {
        return OptionText::tr("--size needs a width and a height, such as 1280x800.");
    }
    const double fontScale = parser.value(s_fontScale).toDouble();
    if (!(fontScale >= 1 && fontScale <= 2)) { // nor for a number that is none
        return OptionText::tr("--font-scale needs a number from 1 to 2.");
    }
    if (!pages.match(parser.value(s_page)).hasMatch()) {
        return OptionText::tr(
            "--page needs one of: export, delete, form, recording, locale, device.");
    }
    if (parser.isSet(s_language) && QLocale(parser.value(s_language)).language() == QLocale::C) {
        return OptionText::tr("--language needs a locale, such as de or de_CH.");
    }
    return {};
}

// says so, in the language of the environment, as the command does that starts the screens
bool isRefused(const QCommandLineParser &parser)
{
    Translators translators;
    translators.loadFromEnvironment();
    const QString objection = objectionTo(parser);
    if (!objection.isEmpty()) {
        QTextStream errors(stderr);
        errors.setCodec("UTF-8"); // as the command writes
        errors << objection << '\n' << OptionText::tr("Try: ovo-fieldhost gui --help") << '\n';
    }
    return !objection.isEmpty();
}

} // namespace

int main(int argc, char *argv[])
{
    // touch screens are dense
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    const QApplication application(argc, argv); // the charts need one with widgets
    QCoreApplication::setApplicationName(QStringLiteral("ovo-fieldhost-gui"));
    FieldApplication host;

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({s_dark, QStringLiteral("Starts with dark colours.")});
    parser.addOption({s_language,
                      QStringLiteral("The device's language, as de or de_CH. Default: the "
                                     "environment's."),
                      QStringLiteral("LOCALE")});
    parser.addOption({s_fontScale, QStringLiteral("Makes fonts larger by FACTOR, 1 to 2."),
                      QStringLiteral("FACTOR"), QStringLiteral("1")});
    parser.addOption({s_size, QStringLiteral("Size of the window in pixels."),
                      QStringLiteral("WIDTHxHEIGHT"), QStringLiteral("1280x800")});
    parser.addOption({s_page, QStringLiteral("Screen to start with."), QStringLiteral("NAME"),
                      QStringLiteral("export")});
    parser.process(application);

    if (isRefused(parser)) {
        return 2;
    }
    GlobalLocaleData::instance()->setDeviceLocale(
        parser.isSet(s_language) ? QLocale(parser.value(s_language)) : QLocale::system());
    const QRegularExpressionMatch size = sizeOf(parser);

    registerScreens();
    QQmlApplicationEngine engine;
    const Translations translations(engine);
    engine.setInitialProperties({
        {QStringLiteral("page"), parser.value(s_page)},
        {QStringLiteral("dark"), parser.isSet(s_dark)},
        {QStringLiteral("fontScale"), parser.value(s_fontScale).toDouble()},
        {QStringLiteral("width"), size.captured(1).toInt()},
        {QStringLiteral("height"), size.captured(2).toInt()},
    });
    engine.load(QUrl(QStringLiteral("qrc:/screens/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QApplication::exec();
}
