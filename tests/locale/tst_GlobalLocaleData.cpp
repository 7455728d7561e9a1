// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CLocaleSupport.h"
#include "shared/locale/CProjectLocaleData.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/locale/Journal.h"
#include "tests/support/FakeCatalog.h"
#include "tests/support/LocaleScope.h"

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using Tavro::Base::DistanceUnit;
using Tavro::Logging::LogLevel;
using Tavro::Shared::CLocaleSupport;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;

namespace {

QLocale american()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

QLocale british()
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom);
}

QLocale german()
{
    return QLocale(QLocale::German, QLocale::Germany);
}

QLocale ungrouped(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale;
}

} // namespace

class tst_GlobalLocaleData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectIsInOrder();
    void projectLocaleWinsWhileItIsValid();
    void projectLocaleIsInstalledBeforeItIsAnnounced();
    void signalsAndLogStandInOrder();
    void everyDefaultLocaleFollowsTheProject();
    void deviceLocaleIsInstalledAndAnnounced();
    void deviceLocaleIsAnnouncedEveryTime();
    void deviceLocaleIsSilentWhileAProjectIsOpen();
    void deviceLocaleComesBackWithoutProject();
    void otherOptionsOfALocaleAreKept();
    void defaultLocaleIsInstalledSilently();
    void unitIsThatOfTheProject_data();
    void unitIsThatOfTheProject();
    void unitWithoutProjectIsThatOfTheDefaultLocale_data();
    void unitWithoutProjectIsThatOfTheDefaultLocale();
    void unitReadsTheDefaultLocaleAndNotItsOwn();
    void unknownCodesTakeTheDefaultLocale_data();
    void unknownCodesTakeTheDefaultLocale();
    void columnUnitIsThatOfTheTemplate();

private:
    GlobalLocaleData *m_global = nullptr;
    CProjectLocaleData *m_project = nullptr;
    std::optional<Test::LocaleScope> m_scope;
    std::optional<Test::LogRecorder> m_silence;
};

void tst_GlobalLocaleData::init()
{
    m_scope.emplace(QLocale::c());
    m_silence.emplace();
    m_global = GlobalLocaleData::instance();
    m_project = CProjectLocaleData::instance();
}

void tst_GlobalLocaleData::cleanup()
{
    m_silence.reset();
    m_scope.reset();
}

void tst_GlobalLocaleData::metaObjectIsInOrder()
{
    const QMetaObject &meta = GlobalLocaleData::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::GlobalLocaleData");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);

    const QMetaMethod first = meta.method(meta.methodOffset());
    QCOMPARE(first.methodSignature(), QByteArrayLiteral("localeChanged()"));
    QCOMPARE(first.methodType(), QMetaMethod::Signal);

    const QMetaMethod second = meta.method(meta.methodOffset() + 1);
    QCOMPARE(second.methodSignature(), QByteArrayLiteral("projectLocaleChanged()"));
    QCOMPARE(second.methodType(), QMetaMethod::Slot);
    QCOMPARE(second.access(), QMetaMethod::Public);
}

void tst_GlobalLocaleData::projectLocaleWinsWhileItIsValid()
{
    m_global->setDeviceLocale(german());
    QCOMPARE(m_global->locale(), ungrouped(german()));

    m_project->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
    QCOMPARE(m_global->locale(), ungrouped(american()));
    QCOMPARE(QLocale(), ungrouped(american()));

    m_project->unsetLocale();
    QCOMPARE(m_global->locale(), ungrouped(german()));
    QCOMPARE(QLocale(), ungrouped(german()));
}

void tst_GlobalLocaleData::projectLocaleIsInstalledBeforeItIsAnnounced()
{
    Test::Journal journal;
    const auto *global = m_global;
    journal.follow(m_global, &GlobalLocaleData::localeChanged, [global] {
        return QLocale().name() + QLatin1Char(' ') + global->locale().name();
    });
    m_global->setDeviceLocale(german());
    QCOMPARE(journal.take(), QStringList({QStringLiteral("de_DE de_DE")}));
    m_project->setLocale(QStringLiteral("F"), QStringLiteral("FRA"));
    QCOMPARE(journal.take().value(0), QStringLiteral("fr_FR fr_FR")); // the log is the rest
    m_project->unsetLocale();
    QCOMPARE(journal.take().value(1), QStringLiteral("de_DE de_DE"));
}

void tst_GlobalLocaleData::signalsAndLogStandInOrder()
{
    Test::Journal journal;
    journal.follow(m_project, &CProjectLocaleData::localeChanged, "project");
    journal.follow(m_global, &GlobalLocaleData::localeChanged, "global");
    const QString entry = Test::localeEntry(
        LogLevel::Info, QStringLiteral("Locale set to project en_GB ms: 2 decimal: ."));

    // its own connection is older than any of the project's other listeners
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    QCOMPARE(
        journal.take(),
        QStringList({QStringLiteral("signal global"), QStringLiteral("signal project"), entry}));
    m_project->unsetLocale();
    QCOMPARE(
        journal.take(),
        QStringList({entry, QStringLiteral("signal global"), QStringLiteral("signal project")}));
    m_global->setDeviceLocale(german());
    QCOMPARE(journal.take(), QStringList({QStringLiteral("signal global")}));
    m_global->projectLocaleChanged();
    QCOMPARE(journal.take(), QStringList({QStringLiteral("signal global")}));
}

void tst_GlobalLocaleData::everyDefaultLocaleFollowsTheProject()
{
    for (const char *language : {"DEU", "de"}) { // the country alone says as much
        m_project->setLocale(QStringLiteral("CH"), QString::fromLatin1(language));
        const QLocale locale;
        QCOMPARE(locale.language(), QLocale::German);
        QCOMPARE(locale.country(), QLocale::Switzerland);
        QCOMPARE(locale.toString(1234567.5, 'f', 1), QStringLiteral("1234567.5"));
        m_project->unsetLocale();
        QCOMPARE(QLocale().language(), QLocale::C);
    }
}

void tst_GlobalLocaleData::deviceLocaleIsInstalledAndAnnounced()
{
    QSignalSpy spy(m_global, &GlobalLocaleData::localeChanged);
    m_global->setDeviceLocale(german());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(m_global->locale(), ungrouped(german()));
    QCOMPARE(QLocale(), ungrouped(german()));
    QCOMPARE(QLocale().toString(1234567), QStringLiteral("1234567"));
}

void tst_GlobalLocaleData::deviceLocaleIsAnnouncedEveryTime()
{
    QSignalSpy spy(m_global, &GlobalLocaleData::localeChanged);
    m_global->setDeviceLocale(german());
    m_global->setDeviceLocale(german());
    QCOMPARE(spy.count(), 2);
}

void tst_GlobalLocaleData::deviceLocaleIsSilentWhileAProjectIsOpen()
{
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    QSignalSpy spy(m_global, &GlobalLocaleData::localeChanged);
    m_global->setDeviceLocale(german());
    QCOMPARE(QLocale(), ungrouped(british()));
    QCOMPARE(m_global->locale(), ungrouped(british()));
    m_project->unsetLocale();
    QCOMPARE(spy.count(), 1); // of unsetLocale() alone
}

void tst_GlobalLocaleData::deviceLocaleComesBackWithoutProject()
{
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    m_global->setDeviceLocale(german()); // kept for later
    m_project->unsetLocale();
    QCOMPARE(m_global->locale(), ungrouped(german()));
    QCOMPARE(QLocale(), ungrouped(german()));
}

void tst_GlobalLocaleData::otherOptionsOfALocaleAreKept()
{
    QLocale strict = german();
    strict.setNumberOptions(QLocale::RejectGroupSeparator | QLocale::IncludeTrailingZeroesAfterDot);
    const QLocale::NumberOptions both = strict.numberOptions() | QLocale::OmitGroupSeparator;

    m_global->setDeviceLocale(strict);
    QCOMPARE(m_global->locale().numberOptions(), both);
    QCOMPARE(QLocale().numberOptions(), both);

    m_global->setDeviceLocale(QLocale::c());
    m_global->setDefaultLocale(strict);
    QCOMPARE(QLocale().numberOptions(), both);

    // and the caller's locale stays as it was
    QVERIFY(!strict.numberOptions().testFlag(QLocale::OmitGroupSeparator));
}

void tst_GlobalLocaleData::defaultLocaleIsInstalledSilently()
{
    QSignalSpy spy(m_global, &GlobalLocaleData::localeChanged);
    m_global->setDefaultLocale(american());
    QCOMPARE(QLocale(), ungrouped(american()));
    QCOMPARE(m_global->locale(), ungrouped(QLocale::c()));
    QCOMPARE(m_project->localeValid(), false);
    m_global->setDeviceLocale(german());
    QCOMPARE(spy.count(), 1); // of setDeviceLocale() alone
}

void tst_GlobalLocaleData::unitIsThatOfTheProject_data()
{
    QTest::addColumn<int>("unit");

    QTest::newRow("metres") << 1;
    QTest::newRow("feet") << 2;
    QTest::newRow("inches") << 3;
}

void tst_GlobalLocaleData::unitIsThatOfTheProject()
{
    QFETCH(int, unit);
    m_project->setUnitType(static_cast<DistanceUnit>(unit));
    for (const QLocale &locale : {german(), american(), british()}) {
        m_global->setDeviceLocale(locale);
        QCOMPARE(static_cast<int>(m_global->distanceUnitType()), unit);
    }
    m_project->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
    QCOMPARE(static_cast<int>(m_global->distanceUnitType()), unit);
}

void tst_GlobalLocaleData::unitWithoutProjectIsThatOfTheDefaultLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<int>("expected");

    QTest::newRow("United States") << american() << 2;
    QTest::newRow("United Kingdom") << british() << 1;
    QTest::newRow("metric") << german() << 1;
    QTest::newRow("C") << QLocale::c() << 1;
}

void tst_GlobalLocaleData::unitWithoutProjectIsThatOfTheDefaultLocale()
{
    QFETCH(QLocale, locale);
    QFETCH(int, expected);
    m_global->setDeviceLocale(locale);
    QCOMPARE(static_cast<int>(m_global->distanceUnitType()), expected);
}

void tst_GlobalLocaleData::unitReadsTheDefaultLocaleAndNotItsOwn()
{
    m_global->setDeviceLocale(german());
    m_global->setDefaultLocale(american());
    QCOMPARE(m_global->locale(), ungrouped(german()));
    QCOMPARE(m_global->distanceUnitType(), DistanceUnit::Feet);

    // a project's locale is asked for itself, before the default
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    m_global->setDefaultLocale(american());
    QCOMPARE(m_global->distanceUnitType(), DistanceUnit::Meter);
}

void tst_GlobalLocaleData::unknownCodesTakeTheDefaultLocale_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("afterAProject"); // American, and not closed
    QTest::addColumn<QString>("afterItsEnd");

    const QString german = QStringLiteral("de_DE");
    const QString american = QStringLiteral("en_US");
    const QString french = QStringLiteral("fr_FR");
    QTest::newRow("both unknown") << QStringLiteral("XX") << QStringLiteral("XXX") << american
                                  << german;
    QTest::newRow("both empty") << QString() << QString() << american << german;
    QTest::newRow("in another case")
        << QStringLiteral("d") << QStringLiteral("deu") << american << german;
    QTest::newRow("of other lists")
        << QStringLiteral("DE") << QStringLiteral("de") << american << german;
    QTest::newRow("country unknown")
        << QStringLiteral("XX") << QStringLiteral("FRA") << french << french;
    QTest::newRow("language unknown")
        << QStringLiteral("USA") << QStringLiteral("XXX") << american << american;
}

void tst_GlobalLocaleData::unknownCodesTakeTheDefaultLocale()
{
    QFETCH(QString, country);
    QFETCH(QString, language);
    m_global->setDeviceLocale(german());
    for (const bool isClosed : {false, true}) {
        m_project->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
        if (isClosed) {
            m_project->unsetLocale();
        }
        m_project->setLocale(country, language);
        QVERIFY(m_project->localeValid());
        QFETCH(QString, afterAProject);
        QFETCH(QString, afterItsEnd);
        const QString expected = isClosed ? afterItsEnd : afterAProject;
        QCOMPARE(m_global->locale().name(), expected);
        QCOMPARE(QLocale().name(), expected);
        const bool isAmerican = expected == QLatin1String("en_US");
        QCOMPARE(CLocaleSupport::getDistanceUnitString(),
                 isAmerican ? QStringLiteral("ft") : QStringLiteral("m"));
        QCOMPARE(CLocaleSupport::getTemperatureUnitString(),
                 QString::fromUtf8(isAmerican ? "°F" : "°C"));
    }
}

void tst_GlobalLocaleData::columnUnitIsThatOfTheTemplate()
{
    const QString key = QStringLiteral("height");
    QCOMPARE(m_global->catalogTemplateColumnUnit(key), QString());

    const Test::FakeColumn height(key, QStringLiteral("mm"));
    const Test::FakeView detail(QStringLiteral("detail_s"), {&height});
    Test::FakeTemplateManager manager;
    manager.insert(QStringLiteral("t"),
                   QSharedPointer<Test::FakeTemplate>::create(
                       QStringLiteral("m"), QVector<const Test::FakeView *>{&detail}));
    m_project->onNewTemplateLoaded(QStringLiteral("t"), manager, Test::FakeRegistry(), QString(),
                                   QString(), QString());
    QCOMPARE(m_global->catalogTemplateColumnUnit(key), QStringLiteral("mm"));
    QCOMPARE(m_global->catalogTemplateColumnUnit(QStringLiteral("width")), QString());
}

QTEST_APPLESS_MAIN(tst_GlobalLocaleData)

#include "tst_GlobalLocaleData.moc"
