// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/OsSettings.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/LogRecorder.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QScopedPointer>
#include <QSignalSpy>
#include <QTest>

#include <ctime>

using Tavro::OsSettings;

namespace {

/** Has the process live in a zone, as long as the object does. */
class TimeZone
{
public:
    explicit TimeZone(const QByteArray &zone)
        : m_before(qgetenv("TZ"))
    {
        set(zone);
    }
    ~TimeZone() { set(m_before); }

    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    static void set(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        ::tzset();
    }

    QByteArray m_before;
};

// a zone in which it is about noon, whenever the test runs: hours east are written negative
QByteArray noonZone()
{
    const int hoursEast = 12 - QDateTime::currentDateTimeUtc().time().hour();
    return "NOON" + QByteArray::number(-hoursEast);
}

/** Writes down which signals come, in order. */
class SignalLog
{
public:
    SignalLog()
    {
        QObject::connect(OsSettings::instance(), &OsSettings::timeChanged, &m_context,
                         [this] { m_names.append(QStringLiteral("time")); });
        QObject::connect(OsSettings::instance(), &OsSettings::dateChanged, &m_context,
                         [this] { m_names.append(QStringLiteral("date")); });
    }

    const QStringList &names() const { return m_names; }

private:
    QStringList m_names;
    QObject m_context;
};

} // namespace

class tst_OsSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void metaObjectStandsInOrder();
    void thereIsOneThatNoEngineDeletes();
    void readsTheLocalClock();
    void timeIsSetAndAnnounced();
    void midnightIsSet();
    void dateIsSetWithTheTimeOfDay();
    void failureIsNotAnnounced_data();
    void failureIsNotAnnounced();
    void aTimeThatDaylightSavingSkipsIsNotSet();
    void invalidIsNotSet();
    void qmlReadsTheClock();
    void qmlSetsTheClock_data();
    void qmlSetsTheClock();
    void qmlKeepsItsValueWhenSettingFails();

private:
    // the program's one engine, as a host has it
    QQmlEngine m_engine;
    QScopedPointer<Test::FakeCommands> m_commands;
    QScopedPointer<Test::LogRecorder> m_log;
};

void tst_OsSettings::initTestCase()
{
    qmlRegisterSingletonInstance("Tavro.Test", 1, 0, "OsSettings", OsSettings::instance());
}

void tst_OsSettings::init()
{
    m_commands.reset(new Test::FakeCommands);
    m_commands->hideOthers();
    m_commands->add(QStringLiteral("date"));
    m_commands->add(QStringLiteral("hwclock"));
    m_log.reset(new Test::LogRecorder);
}

void tst_OsSettings::cleanup()
{
    m_log.reset();
    m_commands.reset();
}

void tst_OsSettings::metaObjectStandsInOrder()
{
    const QMetaObject &meta = OsSettings::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::OsSettings");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);

    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const char *signalNames[] = {"timeChanged()", "dateChanged()"};
    for (int i = 0; i < 2; ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(signalNames[i]));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
    }

    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    const char *propertyNames[] = {"time", "date"};
    const char *typeNames[] = {"QTime", "QDate"};
    for (int i = 0; i < 2; ++i) {
        const QMetaProperty property = meta.property(meta.propertyOffset() + i);
        QCOMPARE(property.name(), propertyNames[i]);
        QCOMPARE(property.typeName(), typeNames[i]);
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray(signalNames[i]));
    }
}

void tst_OsSettings::thereIsOneThatNoEngineDeletes()
{
    OsSettings *settings = OsSettings::instance();
    QCOMPARE(QQmlEngine::objectOwnership(settings), QQmlEngine::CppOwnership);
    QQmlEngine::setObjectOwnership(settings, QQmlEngine::JavaScriptOwnership);
    QCOMPARE(OsSettings::instance(), settings);
    QCOMPARE(QQmlEngine::objectOwnership(settings), QQmlEngine::CppOwnership);

    const QPointer<OsSettings> alive(settings);
    {
        QQmlEngine engine;
        QVERIFY(engine.newQObject(OsSettings::instance()).isQObject());
        engine.collectGarbage();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(alive);
}

void tst_OsSettings::readsTheLocalClock()
{
    for (const QByteArray &zone : {noonZone(), QByteArray("FAR-13:45")}) {
        const TimeZone zoneOfTest(zone);
        // once more if midnight comes in between
        QDateTime before;
        QDateTime after;
        QDateTime read;
        do {
            before = QDateTime::currentDateTime();
            read = QDateTime(OsSettings::instance()->date(), OsSettings::instance()->time());
            after = QDateTime::currentDateTime();
        } while (before.date() != after.date());
        QVERIFY(before <= read);
        QVERIFY(read <= after);
    }
}

void tst_OsSettings::timeIsSetAndAnnounced()
{
    SignalLog log;
    OsSettings::instance()->setTime(QTime(12, 34, 56));
    QCOMPARE(m_commands->journal(),
             (QStringList{QStringLiteral("date -u -s 12:34:56"),
                          QStringLiteral("hwclock --systohc --utc")}));
    QCOMPARE(log.names(), QStringList(QStringLiteral("time")));
    // also when it is the same: whoever set it may have corrected some seconds
    OsSettings::instance()->setTime(QTime(12, 34, 56));
    QCOMPARE(log.names(), (QStringList{QStringLiteral("time"), QStringLiteral("time")}));
}

void tst_OsSettings::midnightIsSet()
{
    SignalLog log;
    OsSettings::instance()->setTime(QTime(0, 0));
    QCOMPARE(m_commands->journal().value(0), QStringLiteral("date -u -s 00:00:00"));
    QCOMPARE(log.names(), QStringList(QStringLiteral("time")));
}

void tst_OsSettings::dateIsSetWithTheTimeOfDay()
{
    const TimeZone zone(noonZone());
    SignalLog log;
    const QTime before = QTime::currentTime();
    OsSettings::instance()->setDate(QDate(2031, 2, 3));
    const QTime after = QTime::currentTime();

    const QString call = m_commands->journal().value(0);
    const QString beginning = QStringLiteral("date -u -s 2031-02-03 ");
    QVERIFY2(call.startsWith(beginning), qPrintable(call));
    const QTime sent = QTime::fromString(call.mid(beginning.size()), QStringLiteral("hh:mm:ss"));
    QVERIFY(sent.isValid());
    QVERIFY(before.addMSecs(-before.msec()) <= sent);
    QVERIFY(sent <= after);
    QCOMPARE(m_commands->journal().value(1), QStringLiteral("hwclock --systohc --utc"));
    QCOMPARE(m_commands->journal().size(), 2);
    QCOMPARE(log.names(), (QStringList{QStringLiteral("date"), QStringLiteral("time")}));
}

void tst_OsSettings::failureIsNotAnnounced_data()
{
    QTest::addColumn<QString>("failing");

    QTest::newRow("of the system's clock") << QStringLiteral("date");
    QTest::newRow("of the hardware's clock") << QStringLiteral("hwclock");
}

void tst_OsSettings::failureIsNotAnnounced()
{
    QFETCH(QString, failing);

    const TimeZone zone(noonZone());
    m_commands->add(failing, "exit 1");
    SignalLog log;
    OsSettings::instance()->setTime(QTime(12, 0));
    OsSettings::instance()->setDate(QDate(2031, 2, 3));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_log->entries().size(), 2);
    QCOMPARE(m_commands->journal().size(), failing == QLatin1String("date") ? 2 : 4);
}

void tst_OsSettings::aTimeThatDaylightSavingSkipsIsNotSet()
{
    // a zone that jumps from six to eighteen, half a year from now, and where it is noon
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const int hoursEast = 12 - now.time().hour();
    const int jump = (now.date().dayOfYear() + 180) % 360 + 1;
    const TimeZone zone(QStringLiteral("NOON%1LATE%2,J%3/6,J%4")
                            .arg(-hoursEast)
                            .arg(-hoursEast - 12)
                            .arg(jump)
                            .arg(jump + 1)
                            .toLatin1());
    // no leap year, so that this is the day of that number
    const QDate day = QDate(2031, 1, 1).addDays(jump - 1);
    QVERIFY(QDateTime(day, QTime(5, 59)).isValid());

    SignalLog log;
    OsSettings::instance()->setDate(day);
    QCOMPARE(m_commands->journal(), QStringList());
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_log->entries().size(), 1);

    OsSettings::instance()->setDate(day.addDays(-1));
    QCOMPARE(m_commands->journal().size(), 2);
    QCOMPARE(log.names(), (QStringList{QStringLiteral("date"), QStringLiteral("time")}));
}

void tst_OsSettings::invalidIsNotSet()
{
    SignalLog log;
    OsSettings::instance()->setTime(QTime());
    OsSettings::instance()->setDate(QDate());
    QCOMPARE(m_commands->journal(), QStringList());
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_log->entries().size(), 2);
}

void tst_OsSettings::qmlReadsTheClock()
{
    const TimeZone zone(noonZone());
    QQmlComponent component(&m_engine);
    component.setData("import QtQml 2.15\nimport Tavro.Test 1.0\n"
                      "QtObject { property string day: OsSettings.date.toISOString()\n"
                      "property int hour: OsSettings.time.getHours() }",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    // QML has a date as the midnight of UTC with which it begins
    QCOMPARE(object->property("day").toString(),
             QDate::currentDate().toString(Qt::ISODate) + QStringLiteral("T00:00:00.000Z"));
    const int hour = object->property("hour").toInt();
    QVERIFY2(hour == 12 || hour == 13, qPrintable(QString::number(hour)));
}

void tst_OsSettings::qmlSetsTheClock_data()
{
    QTest::addColumn<QByteArray>("timeZone");

    QTest::newRow("in UTC") << QByteArray("UTC");
    QTest::newRow("east of it") << QByteArray("EAST-5");
    QTest::newRow("west of it") << QByteArray("WEST5");
}

void tst_OsSettings::qmlSetsTheClock()
{
    QFETCH(QByteArray, timeZone);

    const TimeZone zone(timeZone);
    QQmlComponent component(&m_engine);
    component.setData("import QtQml 2.15\nimport Tavro.Test 1.0\n"
                      "QtObject {\n"
                      "property string heard\n"
                      "property Connections connections: Connections {\n"
                      "    target: OsSettings\n"
                      "    function onTimeChanged() { heard += 'time ' }\n"
                      "    function onDateChanged() { heard += 'date ' }\n"
                      "}\n"
                      "function setTime() { OsSettings.time = new Date(2026, 5, 4, 3, 2, 1) }\n"
                      "function setDate() { OsSettings.date = new Date(2031, 1, 3) }\n"
                      "}",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));

    QVERIFY(QMetaObject::invokeMethod(object.data(), "setTime"));
    QCOMPARE(m_commands->journal().value(0), QStringLiteral("date -u -s 03:02:01"));
    QCOMPARE(object->property("heard").toString(), QStringLiteral("time "));

    QVERIFY(QMetaObject::invokeMethod(object.data(), "setDate"));
    QVERIFY(m_commands->journal().value(2).startsWith(QStringLiteral("date -u -s 2031-02-03 ")));
    QCOMPARE(object->property("heard").toString(), QStringLiteral("time date time "));
}

void tst_OsSettings::qmlKeepsItsValueWhenSettingFails()
{
    const TimeZone zone(noonZone());
    m_commands->add(QStringLiteral("hwclock"), "exit 1");
    QQmlComponent component(&m_engine);
    component.setData("import QtQml 2.15\nimport Tavro.Test 1.0\n"
                      "QtObject {\n"
                      "property int reads: 0\n"
                      "property Connections connections: Connections {\n"
                      "    target: OsSettings\n"
                      "    function onDateChanged() { ++reads }\n"
                      "}\n"
                      "function setDate() { OsSettings.date = new Date(2031, 1, 3) }\n"
                      "}",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    const int before = object->property("reads").toInt();
    QVERIFY(QMetaObject::invokeMethod(object.data(), "setDate"));
    QCOMPARE(object->property("reads").toInt(), before);

    m_commands->add(QStringLiteral("hwclock"));
    QVERIFY(QMetaObject::invokeMethod(object.data(), "setDate"));
    QVERIFY(object->property("reads").toInt() > before);
}

QTEST_GUILESS_MAIN(tst_OsSettings)

#include "tst_OsSettings.moc"
