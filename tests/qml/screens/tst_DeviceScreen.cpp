// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/services/HostLog.h"
#include "shared/locale/GlobalLocaleData.h"
#include "tests/fieldhost/TestDrive.h"
#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/PrivateMounts.h"
#include "tests/support/TestClock.h"

#include <QFile>
#include <QLocale>

#include <memory>

using Tavro::FieldHost::HostLog;
using Tavro::Logging::CLogger;
using Tavro::Logging::LogLevel;
using Tavro::Shared::GlobalLocaleData;

namespace {

/** A stick that comes and goes, or clocks that are not the machine's: there is one test bed. */
class DeviceScreenTest : public Tavro::Test::ScreenTest
{
    Q_OBJECT
    Q_PROPERTY(bool hasDrives MEMBER m_hasDrives CONSTANT)

public:
    DeviceScreenTest()
    {
        GlobalLocaleData::instance()->setDeviceLocale(QLocale(QStringLiteral("en_GB")));
    }

    /** A stick with a file system of that type. */
    Q_INVOKABLE void plugIn(const QString &type)
    {
        m_clock.reset();
        m_drive.reset();
        m_drive = std::make_unique<::Test::TestDrive>(type.toLatin1());
    }
    Q_INVOKABLE void pull()
    {
        m_drive.reset();
        ::Test::PrivateMounts::setMountTable({});
    }
    /** Whether the stick was pulled too early. */
    Q_INVOKABLE void setDirty(bool isDirty) { m_drive->setDirtyByte(isDirty ? 1 : 0); }
    /** Mounts it for longer than a look. */
    Q_INVOKABLE void mount() { m_drive->mount(); }
    /** Pulls the stick out; what is mounted stays in the mount table. */
    Q_INVOKABLE void pullWhileMounted() { m_drive->pull(); }

    /** Clocks that are not the machine's. */
    Q_INVOKABLE void makeClock()
    {
        m_drive.reset();
        m_clock.reset();
        m_clock = std::make_unique<::Test::TestClock>();
    }
    /** The hardware clock refuses from now on. */
    Q_INVOKABLE void breakClock() { m_clock->commands.add(QStringLiteral("hwclock"), "exit 1"); }
    /** The day that it is, as it is typed. */
    Q_INVOKABLE QString today() const { return QDate::currentDate().toString(Qt::ISODate); }
    /** What was run to set the clock. */
    Q_INVOKABLE QStringList commands() const { return m_clock->commands.journal(); }

    /** Logs an entry on this thread. */
    Q_INVOKABLE void log(int level, const QString &message)
    {
        CLogger::logMessage(static_cast<LogLevel>(level), QStringLiteral("Test"), message);
    }

private:
    const bool m_hasDrives = ::Test::PrivateMounts::entered();
    std::unique_ptr<::Test::TestClock> m_clock;
    std::unique_ptr<::Test::TestDrive> m_drive;
};

} // namespace

int main(int argc, char *argv[])
{
    ::Test::PrivateMounts::enter(); // before there is a second thread
    return Tavro::Test::runScreenTest(
        argc, argv, "tst_DeviceScreen",
        []() -> Tavro::Test::ScreenTest * { return new DeviceScreenTest; });
}

#include "tst_DeviceScreen.moc"
