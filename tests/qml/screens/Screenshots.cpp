// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/GlobalLocaleData.h"
#include "tests/fieldhost/TestDrive.h"
#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QLocale>
#include <QQuickWindow>

#include <memory>

#include <unistd.h>

using Tavro::Shared::GlobalLocaleData;

namespace {

/** The pictures of docs/screens: a home with a project, a USB drive, and where pictures go. */
class Screenshots : public Tavro::Test::ScreenTest
{
    Q_OBJECT

public:
    Screenshots()
    {
        GlobalLocaleData::instance()->setDeviceLocale(QLocale(QStringLiteral("en_GB")));
        qputenv("HOME", s_home);
        const QString project = QString::fromLatin1(s_home) + QStringLiteral("/Mill Lane 2026/");
        for (int i = 0; i < 8; ++i) {
            const QString section = project + QStringLiteral("Section %1/").arg(i + 1);
            makeFile(section + QStringLiteral("inspection.mp4"), 24 << 20);
            for (int j = 0; j < 10; ++j) {
                makeFile(section + QStringLiteral("pictures/%1.jpg").arg(j), 40'000);
            }
        }
    }

    /** Writes what the window shows. */
    Q_INVOKABLE void save(QQuickWindow *window, const QString &name) const
    {
        const QString path = QDir(QString::fromLocal8Bit(qgetenv("OVO_SCREENSHOTS")))
                                 .filePath(name + QStringLiteral(".png"));
        if (!window->grabWindow().save(path)) {
            qFatal("cannot write %s", qPrintable(path));
        }
    }

private:
    static constexpr char s_home[] = "/media/inspector";

    static void makeFile(const QString &path, int size)
    {
        ::Test::makeFile(path, QByteArray(size, 'x'));
    }

    ::Test::TestDrive m_drive;
};

} // namespace

// The directory that stands for the drive is in memory. It becomes as slow as a drive.
extern "C" int fsync(int /*descriptor*/)
{
    constexpr useconds_t flush = 60'000;
    ::usleep(flush);
    return 0;
}

int main(int argc, char *argv[])
{
    if (!::Test::PrivateMounts::enter()) {
        qFatal("a home and a drive of its own need the rights of root");
    }
    return Tavro::Test::runScreenTest(
        argc, argv, "Screenshots", []() -> Tavro::Test::ScreenTest * { return new Screenshots; });
}

#include "Screenshots.moc"
