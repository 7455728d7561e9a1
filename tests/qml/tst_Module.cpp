// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OvoSharedBaseTypes.h"
#include "shared/base/CErrorCode.h"
#include "shared/input/CInputType.h"
#include "shared/view3d/ProjectTypeGlobal.h"
#include "tests/support/FakeCommands.h"
#include "tests/support/FileTree.h"
#include "tests/support/LocaleScope.h"
#include "tests/support/PrivateMounts.h"
#include "tests/support/UdevTestBed.h"
#include "tests/usb/UsbTest.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QQmlEngine>
#include <QQmlError>
#include <QSemaphore>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QTime>
#include <QtQuickTest>

#include <cstdio>
#include <ctime>
#include <memory>

using Tavro::ProjectTypeGlobal;
using Tavro::Shared::CInputType;
using Tavro::Shared::CProjectLocaleData;

namespace {

// what the engine complains of while the tests run
int s_warnings = 0;

/** A column with a list of one entry. */
class Column : public CInputType
{
public:
    QString caption() const override { return QStringLiteral("Material"); }
    QString boundColumn() const override { return QStringLiteral("SEC_Material"); }
    QString unit() const override { return QString(); }
    QString displayFormat() const override { return QString(); }
    bool mandatory() const override { return true; }
    bool hasList() const override { return false; }
    bool editableList() const override { return false; }
    InputType inputType() const override { return InputTypeText; }
    int maximumTextLength() const override { return 2; }
    int controlType() const override { return TextBox; }
    QVariant minimumValue() const override { return QVariant(); }
    QVariant maximumValue() const override { return QVariant(); }
    QVariantList itemList() const override { return {}; }
    QString textFromListIndex(int) const override { return QString(); }
    QVariant valueFromListIndex(int) const override { return QVariant(); }
    int listIndexFromValue(const QVariant &) const override { return -1; }
};

} // namespace

/** What the tests do to the world around the screens. */
class Host : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString directory READ directory NOTIFY directoryChanged)
    Q_PROPERTY(QDate day MEMBER m_day NOTIFY dayChanged)
    Q_PROPERTY(QTime time MEMBER m_time NOTIFY timeChanged)
    Q_PROPERTY(Tavro::Shared::CInputType *column READ column CONSTANT)
    Q_PROPERTY(bool hasDrives READ hasDrives CONSTANT)

public:
    QString directory() const { return m_directory->path(); }
    CInputType *column() { return &m_column; }
    static bool hasDrives() { return Test::PrivateMounts::entered(); }

    /** An empty directory, an English device, no project, no drive, and the day of the tests. */
    Q_INVOKABLE void begin()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        useLocale(QStringLiteral("en_GB"));
        m_day = QDate(2024, 3, 7);
        m_time = QTime(14, 5, 9);
        Q_EMIT directoryChanged();
        Q_EMIT dayChanged();
        Q_EMIT timeChanged();
    }
    /** Everything is as it was before the tests. */
    Q_INVOKABLE void end()
    {
        useTimeZone(QStringLiteral("UTC"));
        ProjectTypeGlobal::instance().setProjectType(QString());
        m_locale.reset();
        m_drive.reset();
        m_commands.reset();
    }

    /** A file of @p size bytes below the directory. */
    Q_INVOKABLE void write(const QString &name, int size)
    {
        Test::makeFile(directory() + QLatin1Char('/') + name, Test::someBytes(size));
    }
    /** Holds a copy in its last chunk, which ends with the command "sync". */
    Q_INVOKABLE void holdSync()
    {
        m_commands = std::make_unique<Test::FakeCommands>();
        m_commands->addHeld(QStringLiteral("sync"), directory() + QStringLiteral("/letGo"));
    }
    Q_INVOKABLE bool isSyncing() const { return !m_commands->journal().isEmpty(); }
    Q_INVOKABLE void letSyncGo() { write(QStringLiteral("letGo"), 0); }
    Q_INVOKABLE static bool exists(const QString &path) { return QFileInfo::exists(path); }
    /** The relative paths below a directory, sorted. */
    Q_INVOKABLE static QStringList tree(const QString &path) { return Test::treeOf(path).keys(); }
    /** Whether two directories hold the same. */
    Q_INVOKABLE static bool same(const QString &one, const QString &other)
    {
        return Test::treeOf(one) == Test::treeOf(other);
    }
    Q_INVOKABLE static qlonglong sizeOfVolume(const QString &path)
    {
        return QStorageInfo(path).bytesTotal();
    }

    /** No task of Qt's global pool begins until freePool(). */
    Q_INVOKABLE void occupyPool()
    {
        QThreadPool *pool = QThreadPool::globalInstance();
        for (int i = 0; i < pool->maxThreadCount(); ++i) {
            pool->start([this] { m_free.acquire(); });
        }
    }
    Q_INVOKABLE void freePool()
    {
        QThreadPool *pool = QThreadPool::globalInstance();
        m_free.release(pool->maxThreadCount());
    }

    /** The device's locale, without a project. */
    Q_INVOKABLE void useLocale(const QString &name)
    {
        m_locale.reset();
        m_locale = std::make_unique<Test::LocaleScope>(QLocale(name));
    }
    /** A project of that unit, in the device's locale. */
    Q_INVOKABLE static void openProjectIn(const QString &unit)
    {
        Test::FakeTemplateManager templates;
        templates.insert(QStringLiteral("T"),
                         Test::FakeTemplateManager::Pointer(new Test::FakeTemplate(unit)));
        const Test::LogRecorder silence;
        CProjectLocaleData::instance()->onNewTemplateLoaded(
            QStringLiteral("T"), templates, Test::FakeRegistry(), QString(), QString(), QString());
    }
    Q_INVOKABLE static void openProjectOfType(const QString &type)
    {
        ProjectTypeGlobal::instance().setProjectType(type);
    }
    /** JavaScript has to be told by Date.timeZoneUpdated(). */
    Q_INVOKABLE static void useTimeZone(const QString &zone)
    {
        qputenv("TZ", zone.toLatin1());
        ::tzset();
    }

    /** A drive with one partition, which "mount" mounts. */
    Q_INVOKABLE void plugDrive() { m_drive = std::make_unique<Drive>(); }
    Q_INVOKABLE QStringList commandsOfDrive() { return m_drive->commands.takeJournal(); }

    Q_INVOKABLE static QVariant errorCode(uint word)
    {
        return QVariant::fromValue(Tavro::Base::CErrorCode(word));
    }
    /** As an owner in C++ does. */
    Q_INVOKABLE static void destroy(QObject *object) { delete object; }

Q_SIGNALS:
    void directoryChanged();
    void dayChanged();
    void timeChanged();

private:
    struct Drive
    {
        Drive()
        {
            QDir().mkpath(QStringLiteral("/media/usbdrive")); // of the test's own /media
            Test::PrivateMounts::setMountTable(QByteArray());
            bed.addStick("sda", {{"sda1", "exfat"}});
            commands.mountingSets(Test::mounted("/dev/sda1", "/media/usbdrive", "exfat"));
        }

        Test::UdevTestBed bed;
        Test::UsbCommands commands;
    };

    QSemaphore m_free;
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<Test::LocaleScope> m_locale;
    std::unique_ptr<Drive> m_drive;
    std::unique_ptr<Test::FakeCommands> m_commands;
    QDate m_day;
    QTime m_time;
    Column m_column;
};

class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        registerOvoSharedBaseTypes();
        registerOvoSharedBaseTypes(); // as a host does that also finds the plugin
        qmlRegisterSingletonType<Host>("Ovo.Test", 1, 0, "Host",
                                       [](QQmlEngine *, QJSEngine *) -> QObject * {
                                           return new Host; // which the engine owns
                                       });
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        connect(engine, &QQmlEngine::warnings, this,
                [](const QList<QQmlError> &warnings) { s_warnings += warnings.size(); });
    }
};

int main(int argc, char *argv[])
{
    Test::PrivateMounts::enter();
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    Setup setup;
    const int failed =
        quick_test_main_with_setup(argc, argv, "tst_Module", QUICK_TEST_SOURCE_DIR, &setup);
    if (s_warnings > 0) {
        std::fprintf(stderr, "FAIL: the engine has warned %d times, see above\n", s_warnings);
    }
    return failed != 0 || s_warnings > 0 ? 1 : 0;
}

#include "tst_Module.moc"
