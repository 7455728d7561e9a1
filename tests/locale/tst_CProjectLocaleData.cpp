// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/CProjectLocaleData.h"
#include "tests/locale/Journal.h"
#include "tests/support/FakeCatalog.h"
#include "tests/support/LocaleScope.h"

#include <QMetaMethod>
#include <QTest>
#include <QWeakPointer>

#include <optional>

using Tavro::Base::DistanceUnit;
using Tavro::CATManagement::CCatalogDescriptor;
using Tavro::CATManagement::CCatalogTemplateRegistry;
using Tavro::CATManagement::CTemplateManager;
using Tavro::Logging::LogLevel;
using Tavro::Shared::CProjectLocaleData;
using Tavro::Shared::GlobalLocaleData;
using Test::FakeColumn;
using Test::FakeRegistry;
using Test::FakeTemplate;
using Test::FakeTemplateManager;
using Test::FakeView;

namespace {

QString templateId()
{
    return QStringLiteral("template");
}

QString knownCatalog()
{
    return QStringLiteral("catalog");
}

/** Says in a journal what it is asked. */
class TalkingManager : public FakeTemplateManager
{
public:
    explicit TalkingManager(Test::Journal &journal)
        : m_journal(journal)
    {
    }

    Pointer getTemplateFromCache(const QString &templateId) override
    {
        m_journal.add(QLatin1String("asked for template ") + templateId);
        return FakeTemplateManager::getTemplateFromCache(templateId);
    }

private:
    Test::Journal &m_journal;
};

/** Says in a journal what it is asked. */
class TalkingRegistry : public FakeRegistry
{
public:
    TalkingRegistry(Test::Journal &journal, const QStringList &known)
        : FakeRegistry(known)
        , m_journal(journal)
    {
    }

    const CCatalogDescriptor *catalogByUniqueId(const QString &catalogId) const override
    {
        m_journal.add(QLatin1String("asked for catalog ") + catalogId);
        return FakeRegistry::catalogByUniqueId(catalogId);
    }

private:
    Test::Journal &m_journal;
};

FakeTemplateManager::Pointer templateInUnit(const QString &unit)
{
    return QSharedPointer<FakeTemplate>::create(unit);
}

QString loggedLocale(const char *description)
{
    return Test::localeEntry(
        LogLevel::Info, QLatin1String("Locale set to project ") + QString::fromUtf8(description));
}

QString loggedUnknownCatalog(const QString &id)
{
    return Test::localeEntry(
        LogLevel::Warning, QStringLiteral("Cannot find catalog descriptor for id: <%1> ").arg(id));
}

} // namespace

class tst_CProjectLocaleData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void metaObjectIsInOrder();
    void slotIsCalledByName();

    void templateUnitsAreTranslated_data();
    void templateUnitsAreTranslated();
    void loadingGoesStepByStep();
    void sameUnitIsNotAnnouncedAgain();
    void unitWithoutMeaningUnsetsTheUnit();
    void unknownTemplateKeepsTheUnit();
    void unknownCatalogKeepsTheLocale();
    void unknownCatalogStillTakesTheUnit();
    void templateIsSharedUntilTheNext();

    void localeIsThatOfTheCodes_data();
    void localeIsThatOfTheCodes();
    void unknownCodesAreAValidLocale();
    void everySettingOfTheLocaleIsAnnounced();
    void unsettingLogsBeforeItIsAnnounced();
    void unsettingKeepsLocaleAndUnit();
    void unsettingWhatIsNotSetIsAnnounced();
    void localeAndValidityHoldWhenAnnounced();
    void unitHoldsWhenAnnounced();

    void unitTypeIsStoredSilently_data();
    void unitTypeIsStoredSilently();
    void unitFollowsTheLocaleWhenNotSet_data();
    void unitFollowsTheLocaleWhenNotSet();
    void unitThatIsSetWins();

    void columnUnits_data();
    void columnUnits();
    void columnUnitWithoutTemplate();

private:
    void load(const QString &catalogId = knownCatalog(), const char *country = "CH",
              const char *language = "DEU");

    CProjectLocaleData *m_project = nullptr;
    std::optional<Test::LocaleScope> m_scope;
    std::optional<Test::Journal> m_journal;
    FakeTemplateManager m_manager;
};

void tst_CProjectLocaleData::init()
{
    m_scope.emplace(QLocale::c());
    m_manager = FakeTemplateManager();
    m_project = CProjectLocaleData::instance();
    m_journal.emplace();
    m_journal->follow(m_project, &CProjectLocaleData::localeChanged, "localeChanged");
    m_journal->follow(m_project, &CProjectLocaleData::projectDistanceUnitChanged,
                      "projectDistanceUnitChanged");
}

void tst_CProjectLocaleData::cleanup()
{
    m_journal.reset();
    m_scope.reset();
}

// the template of that id from m_manager, and a registry that knows one catalog
void tst_CProjectLocaleData::load(const QString &catalogId, const char *country,
                                  const char *language)
{
    m_project->onNewTemplateLoaded(templateId(), m_manager, FakeRegistry({knownCatalog()}),
                                   catalogId, QString::fromLatin1(country),
                                   QString::fromLatin1(language));
}

void tst_CProjectLocaleData::metaObjectIsInOrder()
{
    const QMetaObject &meta = CProjectLocaleData::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::CProjectLocaleData");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());

    const QVector<QPair<const char *, QMetaMethod::MethodType>> expected = {
        {"localeChanged()", QMetaMethod::Signal},
        {"projectDistanceUnitChanged()", QMetaMethod::Signal},
        {"onNewTemplateLoaded(Tavro::Base::GUID,Tavro::CATManagement::CTemplateManager&,"
         "Tavro::CATManagement::CCatalogTemplateRegistry,QString,QString,QString)",
         QMetaMethod::Slot},
    };
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(expected.at(i).first));
        QCOMPARE(method.methodType(), expected.at(i).second);
        QCOMPARE(method.access(), QMetaMethod::Public);
        QCOMPARE(method.typeName(), "void");
    }
    const QList<QByteArray> names = meta.method(meta.methodOffset() + 2).parameterNames();
    QCOMPARE(names,
             QList<QByteArray>({"templateId", "templateManager", "catTplRegistry", "catalogId",
                                "countryCode", "langCode"}));
}

void tst_CProjectLocaleData::slotIsCalledByName()
{
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("ft")));
    const FakeRegistry registry({knownCatalog()});
    CTemplateManager &manager = m_manager;
    const CCatalogTemplateRegistry &constRegistry = registry;
    QVERIFY(QMetaObject::invokeMethod(
        m_project, "onNewTemplateLoaded", Qt::DirectConnection,
        Q_ARG(Tavro::Base::GUID, templateId()),
        QArgument<CTemplateManager &>("Tavro::CATManagement::CTemplateManager&", manager),
        Q_ARG(Tavro::CATManagement::CCatalogTemplateRegistry, constRegistry),
        Q_ARG(QString, knownCatalog()), Q_ARG(QString, QStringLiteral("UK")),
        Q_ARG(QString, QStringLiteral("ENG"))));
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Feet);
    QCOMPARE(m_project->locale().name(), QStringLiteral("en_GB"));
}

void tst_CProjectLocaleData::templateUnitsAreTranslated_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("metres") << QStringLiteral("m") << 1;
    QTest::newRow("feet") << QStringLiteral("ft") << 2;
    QTest::newRow("inches") << QStringLiteral("inch") << 3;
    QTest::newRow("empty") << QString::fromLatin1("") << 0;
    QTest::newRow("null") << QString() << 0;
    QTest::newRow("millimetres") << QStringLiteral("mm") << 0;
    QTest::newRow("capitals") << QStringLiteral("M") << 0;
    QTest::newRow("a blank behind") << QStringLiteral("ft ") << 0;
}

void tst_CProjectLocaleData::templateUnitsAreTranslated()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    m_manager.insert(templateId(), templateInUnit(text));
    // begin with each unit, so that the change to 0 is seen, too
    for (int before = 0; before <= 3; ++before) {
        m_project->setUnitType(static_cast<DistanceUnit>(before));
        m_journal->take();
        load(QStringLiteral("unknown"));
        QCOMPARE(static_cast<int>(m_project->distanceUnitType()), expected);
        QCOMPARE(m_journal->take().contains(QStringLiteral("signal projectDistanceUnitChanged")),
                 before != expected);
    }
}

void tst_CProjectLocaleData::loadingGoesStepByStep()
{
    TalkingManager manager(*m_journal);
    manager.insert(templateId(), templateInUnit(QStringLiteral("ft")));
    const TalkingRegistry registry(*m_journal, {knownCatalog()});
    m_project->onNewTemplateLoaded(templateId(), manager, registry, knownCatalog(),
                                   QStringLiteral("CH"), QStringLiteral("DEU"));
    QCOMPARE(m_journal->take(),
             QStringList({
                 QStringLiteral("asked for template template"),
                 QStringLiteral("asked for catalog catalog"),
                 QStringLiteral("signal projectDistanceUnitChanged"),
                 QStringLiteral("signal localeChanged"),
                 loggedLocale("de_CH ms: 0 decimal: ."),
             }));
}

void tst_CProjectLocaleData::sameUnitIsNotAnnouncedAgain()
{
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("ft")));
    load();
    QCOMPARE(m_journal->take().count(QStringLiteral("signal projectDistanceUnitChanged")), 1);
    load();
    // the locale is, every time
    QCOMPARE(m_journal->take(),
             QStringList(
                 {QStringLiteral("signal localeChanged"), loggedLocale("de_CH ms: 0 decimal: .")}));

    m_manager.insert(templateId(), templateInUnit(QStringLiteral("inch")));
    load();
    QCOMPARE(m_journal->take().count(QStringLiteral("signal projectDistanceUnitChanged")), 1);
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Inch);
}

void tst_CProjectLocaleData::unitWithoutMeaningUnsetsTheUnit()
{
    m_project->setUnitType(DistanceUnit::Feet);
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("yd")));
    load(QStringLiteral("unknown"));
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Undefined);
    QCOMPARE(m_journal->take(),
             QStringList({QStringLiteral("signal projectDistanceUnitChanged"),
                          loggedUnknownCatalog(QStringLiteral("unknown"))}));
}

void tst_CProjectLocaleData::unknownTemplateKeepsTheUnit()
{
    m_project->setUnitType(DistanceUnit::Inch);
    load();
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Inch);
    QCOMPARE(m_journal->take(),
             QStringList(
                 {QStringLiteral("signal localeChanged"), loggedLocale("de_CH ms: 0 decimal: .")}));
}

void tst_CProjectLocaleData::unknownCatalogKeepsTheLocale()
{
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    m_journal->take();
    load(QStringLiteral("{no such}"));
    QCOMPARE(m_journal->take(), QStringList({loggedUnknownCatalog(QStringLiteral("{no such}"))}));
    QVERIFY(m_project->localeValid());
    QCOMPARE(m_project->locale().name(), QStringLiteral("en_GB"));

    m_project->unsetLocale();
    m_journal->take();
    load(QString());
    QCOMPARE(m_journal->take(), QStringList({loggedUnknownCatalog(QString())}));
    QVERIFY(!m_project->localeValid());
}

void tst_CProjectLocaleData::unknownCatalogStillTakesTheUnit()
{
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("inch")));
    load(QStringLiteral("unknown"));
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Inch);
    QVERIFY(!m_project->localeValid());
}

void tst_CProjectLocaleData::templateIsSharedUntilTheNext()
{
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("m")));
    const QWeakPointer<Tavro::Templates::CCatalogTemplate> first =
        m_manager.getTemplateFromCache(templateId());
    load();
    m_manager.remove(templateId());
    QVERIFY(!first.isNull()); // the manager has let go, the project has not

    m_project->unsetLocale();
    QVERIFY(!first.isNull());

    m_manager.insert(templateId(), templateInUnit(QStringLiteral("m")));
    const QWeakPointer<Tavro::Templates::CCatalogTemplate> second =
        m_manager.getTemplateFromCache(templateId());
    load();
    QVERIFY(first.isNull());

    m_manager.remove(templateId());
    load(); // no template at all
    QVERIFY(second.isNull());
}

void tst_CProjectLocaleData::localeIsThatOfTheCodes_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rest"); // of the log entry

    const auto row = [](const char *country, const char *language, const char *name,
                        const char *rest) {
        QTest::newRow(name) << QString::fromLatin1(country) << QString::fromLatin1(language)
                            << QString::fromLatin1(name) << QString::fromLatin1(rest);
    };
    row("CH", "DEU", "de_CH", " ms: 0 decimal: .");
    row("D", "DEU", "de_DE", " ms: 0 decimal: ,");
    row("USA", "ENG", "en_US", " ms: 1 decimal: .");
    row("UK", "ENG", "en_GB", " ms: 2 decimal: .");
    row("F", "FRA", "fr_FR", " ms: 0 decimal: ,");
    row("S", "SWE", "sv_SE", " ms: 0 decimal: ,");
    row("J", "JPN", "ja_JP", " ms: 0 decimal: .");
    row("IL", "HEB", "he_IL", " ms: 0 decimal: .");
    row("BR", "POR", "pt_BR", " ms: 0 decimal: ,");
    row("N", "NOR", "nb_NO", " ms: 0 decimal: ,");
    row("RC", "ZHO", "zh_CN", " ms: 0 decimal: .");
}

void tst_CProjectLocaleData::localeIsThatOfTheCodes()
{
    QFETCH(QString, country);
    QFETCH(QString, language);
    QFETCH(QString, name);
    QFETCH(QString, rest);

    m_project->setLocale(country, language);
    QVERIFY(m_project->localeValid());
    QCOMPARE(m_project->locale().name(), name);
    QCOMPARE(m_project->locale().numberOptions(), QLocale::OmitGroupSeparator);
    QCOMPARE(
        m_journal->take(),
        QStringList({QStringLiteral("signal localeChanged"),
                     Test::localeEntry(LogLevel::Info,
                                       QLatin1String("Locale set to project ") + name + rest)}));
}

void tst_CProjectLocaleData::unknownCodesAreAValidLocale()
{
    QLocale any(QLocale::AnyLanguage, QLocale::AnyCountry);
    any.setNumberOptions(any.numberOptions() | QLocale::OmitGroupSeparator);
    m_project->setLocale(QStringLiteral("XX"), QStringLiteral("xyz"));
    QVERIFY(m_project->localeValid());
    QCOMPARE(m_project->locale(), any);
    QCOMPARE(m_journal->take().count(QStringLiteral("signal localeChanged")), 1);

    // one of the two is enough to go by
    m_project->setLocale(QStringLiteral("CH"), QStringLiteral("de"));
    QCOMPARE(m_project->locale().name(), QStringLiteral("de_CH"));
    m_project->setLocale(QStringLiteral("XX"), QStringLiteral("FRA"));
    QCOMPARE(m_project->locale().name(), QStringLiteral("fr_FR"));
}

void tst_CProjectLocaleData::everySettingOfTheLocaleIsAnnounced()
{
    const QStringList expected = {QStringLiteral("signal localeChanged"),
                                  loggedLocale("de_DE ms: 0 decimal: ,")};
    for (int i = 0; i < 2; ++i) {
        m_project->setLocale(QStringLiteral("D"), QStringLiteral("DEU"));
        QCOMPARE(m_journal->take(), expected);
    }
}

void tst_CProjectLocaleData::unsettingLogsBeforeItIsAnnounced()
{
    m_project->setLocale(QStringLiteral("UK"), QStringLiteral("ENG"));
    m_journal->take();
    m_project->unsetLocale();
    QCOMPARE(m_journal->take(),
             QStringList(
                 {loggedLocale("en_GB ms: 2 decimal: ."), QStringLiteral("signal localeChanged")}));
}

void tst_CProjectLocaleData::unsettingKeepsLocaleAndUnit()
{
    m_project->setUnitType(DistanceUnit::Feet);
    m_project->setLocale(QStringLiteral("D"), QStringLiteral("DEU"));
    const QLocale set = m_project->locale();
    m_project->unsetLocale();
    QVERIFY(!m_project->localeValid());
    QCOMPARE(m_project->locale(), set);
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Feet);
}

void tst_CProjectLocaleData::unsettingWhatIsNotSetIsAnnounced()
{
    m_project->setLocale(QStringLiteral("D"), QStringLiteral("DEU"));
    m_project->unsetLocale();
    m_journal->take();
    m_project->unsetLocale();
    QCOMPARE(m_journal->take(),
             QStringList(
                 {loggedLocale("de_DE ms: 0 decimal: ,"), QStringLiteral("signal localeChanged")}));
}

void tst_CProjectLocaleData::localeAndValidityHoldWhenAnnounced()
{
    const auto *project = m_project;
    m_journal->follow(m_project, &CProjectLocaleData::localeChanged, [project] {
        return project->localeValid() ? project->locale().name() : QStringLiteral("not valid");
    });
    m_project->setLocale(QStringLiteral("F"), QStringLiteral("FRA"));
    QVERIFY(m_journal->take().contains(QStringLiteral("fr_FR")));
    m_project->unsetLocale();
    QVERIFY(m_journal->take().contains(QStringLiteral("not valid")));
}

void tst_CProjectLocaleData::unitHoldsWhenAnnounced()
{
    const auto *project = m_project;
    m_journal->follow(m_project, &CProjectLocaleData::projectDistanceUnitChanged, [project] {
        return QString::number(static_cast<int>(project->distanceUnitType()));
    });
    m_manager.insert(templateId(), templateInUnit(QStringLiteral("inch")));
    load(QStringLiteral("unknown"));
    QVERIFY(m_journal->take().contains(QStringLiteral("3")));
}

void tst_CProjectLocaleData::unitTypeIsStoredSilently_data()
{
    QTest::addColumn<int>("unit");

    QTest::newRow("metres") << 1;
    QTest::newRow("feet") << 2;
    QTest::newRow("inches") << 3;
    QTest::newRow("not set") << 0;
}

void tst_CProjectLocaleData::unitTypeIsStoredSilently()
{
    QFETCH(int, unit);
    for (const DistanceUnit before : {DistanceUnit::Undefined, DistanceUnit::Inch}) {
        m_project->setUnitType(before);
        m_project->setUnitType(static_cast<DistanceUnit>(unit));
        QCOMPARE(static_cast<int>(m_project->distanceUnitType()), unit);
    }
    m_project->unsetLocale();
    QCOMPARE(m_journal->take().count(), 2); // of unsetLocale() alone
}

void tst_CProjectLocaleData::unitFollowsTheLocaleWhenNotSet_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("expected");

    QTest::newRow("metric") << QStringLiteral("D") << QStringLiteral("DEU") << 1;
    QTest::newRow("United States") << QStringLiteral("USA") << QStringLiteral("ENG") << 2;
    QTest::newRow("United Kingdom") << QStringLiteral("UK") << QStringLiteral("ENG") << 1;
    QTest::newRow("unknown codes") << QStringLiteral("XX") << QStringLiteral("XXX") << 1;
}

void tst_CProjectLocaleData::unitFollowsTheLocaleWhenNotSet()
{
    QFETCH(QString, country);
    QFETCH(QString, language);
    QFETCH(int, expected);
    m_project->setLocale(country, language);
    QCOMPARE(static_cast<int>(m_project->distanceUnitType()), expected);
    m_project->unsetLocale();
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Undefined);
}

void tst_CProjectLocaleData::unitThatIsSetWins()
{
    m_project->setLocale(QStringLiteral("USA"), QStringLiteral("ENG"));
    m_project->setUnitType(DistanceUnit::Meter);
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Meter);
    m_project->setUnitType(DistanceUnit::Undefined);
    QCOMPARE(m_project->distanceUnitType(), DistanceUnit::Feet);
}

void tst_CProjectLocaleData::columnUnits_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");

    QTest::newRow("first of its view") << QStringLiteral("length") << QStringLiteral("m");
    QTest::newRow("after a null column") << QStringLiteral("height") << QStringLiteral("mm");
    QTest::newRow("in a further view of that key")
        << QStringLiteral("slope") << QStringLiteral("%");
    QTest::newRow("first of two in a view") << QStringLiteral("twice") << QStringLiteral("cm");
    QTest::newRow("first of two without unit") << QStringLiteral("bare") << QString();
    QTest::newRow("only in a view of another key") << QStringLiteral("other") << QString();
    QTest::newRow("only in a view of a longer key") << QStringLiteral("longer") << QString();
    QTest::newRow("only in a view of a key in capitals") << QStringLiteral("loud") << QString();
    QTest::newRow("key in capitals") << QStringLiteral("LENGTH") << QString();
    QTest::newRow("part of a key") << QStringLiteral("len") << QString();
    QTest::newRow("nowhere") << QStringLiteral("nowhere") << QString();
    QTest::newRow("empty") << QString() << QString();
}

void tst_CProjectLocaleData::columnUnits()
{
    const auto column = [](const char *key, const char *unit) {
        return FakeColumn(QString::fromLatin1(key), QString::fromLatin1(unit));
    };
    const FakeColumn foreignLength = column("length", "wrong");
    const FakeColumn other = column("other", "wrong");
    const FakeColumn longer = column("longer", "wrong");
    const FakeColumn loud = column("loud", "wrong");
    const FakeColumn length = column("length", "m");
    const FakeColumn height = column("height", "mm");
    const FakeColumn twice = column("twice", "cm");
    const FakeColumn twiceAgain = column("twice", "wrong");
    const FakeColumn bare = column("bare", "");
    const FakeColumn notBare = column("bare", "wrong");
    const FakeColumn slope = column("slope", "%");

    const FakeView foreign(QStringLiteral("list_s"), {&foreignLength, &other});
    const FakeView longerKey(QStringLiteral("detail_section"), {&longer});
    const FakeView capitals(QStringLiteral("DETAIL_S"), {&loud});
    const FakeView empty(QStringLiteral("detail_s"), {});
    const FakeView detail(QStringLiteral("detail_s"),
                          {&length, nullptr, &height, &twice, &twiceAgain, &bare});
    const FakeView furtherDetail(QStringLiteral("detail_s"),
                                 {nullptr, &foreignLength, &slope, &notBare});
    m_manager.insert(templateId(),
                     QSharedPointer<FakeTemplate>::create(
                         QStringLiteral("m"),
                         QVector<const FakeView *>{nullptr, &foreign, &longerKey, &capitals, &empty,
                                                   &detail, nullptr, &furtherDetail}));
    load();

    QFETCH(QString, key);
    QTEST(m_project->requestTemplateColumnUnit(key), "expected");
}

void tst_CProjectLocaleData::columnUnitWithoutTemplate()
{
    const FakeColumn length(QStringLiteral("length"), QStringLiteral("m"));
    const FakeView detail(QStringLiteral("detail_s"), {&length});
    m_manager.insert(templateId(),
                     QSharedPointer<FakeTemplate>::create(QStringLiteral("m"),
                                                          QVector<const FakeView *>{&detail}));
    load();
    QCOMPARE(m_project->requestTemplateColumnUnit(QStringLiteral("length")), QStringLiteral("m"));
    m_project->unsetLocale(); // the template stays
    QCOMPARE(m_project->requestTemplateColumnUnit(QStringLiteral("length")), QStringLiteral("m"));

    m_manager.remove(templateId());
    load();
    QCOMPARE(m_project->requestTemplateColumnUnit(QStringLiteral("length")), QString());
}

QTEST_APPLESS_MAIN(tst_CProjectLocaleData)

#include "tst_CProjectLocaleData.moc"
