// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/support/LogRecorder.h"

#include <QSignalSpy>
#include <QTest>

using Tavro::Base::DistanceUnit;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;

/** What the two singletons begin with. A process has one beginning, so this is one story. */
class tst_LocaleStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void beginsWithTheDefaultLocaleAsItIs();
};

void tst_LocaleStart::beginsWithTheDefaultLocaleAsItIs()
{
    const Test::LogRecorder log;
    const QLocale swedish(QLocale::Swedish, QLocale::Sweden);
    const QLocale german(QLocale::German, QLocale::Germany);

    // the project's data: nothing set, the default locale of this moment, and nobody told
    QLocale::setDefault(swedish);
    auto *const project = CProjectLocaleData::instance();
    QVERIFY(project);
    QCOMPARE(CProjectLocaleData::instance(), project);
    QCOMPARE(project->parent(), nullptr);
    QVERIFY(!project->localeValid());
    QCOMPARE(project->locale(), swedish);
    QCOMPARE(project->distanceUnitType(), DistanceUnit::Undefined);
    QCOMPARE(project->requestTemplateColumnUnit(QStringLiteral("length")), QString());
    QCOMPARE(log.entries(), QStringList());

    // as long as nobody has asked for the global data, a project does not touch the default
    project->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
    QCOMPARE(QLocale(), swedish);

    // the device's locale is the default locale of this moment, group separators and all
    QLocale::setDefault(german);
    auto *const global = GlobalLocaleData::instance();
    QVERIFY(global);
    QCOMPARE(GlobalLocaleData::instance(), global);
    QCOMPARE(global->parent(), nullptr);
    QCOMPARE(QLocale(), german);
    QCOMPARE(global->locale(), project->locale());

    QSignalSpy changes(global, &GlobalLocaleData::localeChanged);
    project->unsetLocale();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(global->locale(), german);
    QCOMPARE(global->locale().numberOptions(), QLocale::DefaultNumberOptions);
    QCOMPARE(global->locale().toString(1234.5, 'f', 1), QStringLiteral("1.234,5"));

    // installed as the default it has none
    QCOMPARE(QLocale().name(), QStringLiteral("de_DE"));
    QCOMPARE(QLocale().numberOptions(), QLocale::OmitGroupSeparator);
    QCOMPARE(QLocale().toString(1234.5, 'f', 1), QStringLiteral("1234,5"));
}

QTEST_APPLESS_MAIN(tst_LocaleStart)

#include "tst_LocaleStart.moc"
