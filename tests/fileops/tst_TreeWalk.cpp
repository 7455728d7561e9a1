// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/TreeWalk.h"
#include "shared/filesystem/detail/PathText.h"
#include "tests/support/FaultInjection.h"
#include "tests/support/FileTree.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <thread>
#include <vector>

using Tavro::Shared::detail::FoundFile;
using Tavro::Shared::detail::Links;
using Tavro::Shared::detail::listTree;
using Tavro::Shared::detail::TreeListing;
using Tavro::Shared::detail::withFinalSlash;
using Test::FaultInjection::Call;

namespace Faults = Test::FaultInjection;

// a 32-bit machine cannot look at a file of 2039 otherwise
static_assert(sizeof(std::time_t) == sizeof(qint64), "times must go beyond 2038");

namespace {

// The walk as its contract words it, by QDir and nothing else.
TreeListing listByQDir(const QString &root, Links links = Links::Follow)
{
    const QDir::Filters more =
        links == Links::Refuse ? QDir::Filters(QDir::NoSymLinks) : QDir::Filters();
    const QString source = root.endsWith(QLatin1Char('/')) ? root : root + QLatin1Char('/');
    const auto filesOf = [more](const QDir &directory) {
        return directory.entryInfoList(QDir::Files | more, QDir::NoSort);
    };
    const auto directoriesOf = [more](const QDir &directory) {
        QStringList paths;
        const QStringList names =
            directory.entryList(QDir::AllDirs | QDir::NoDotAndDotDot | more, QDir::NoSort);
        for (const QString &name : names) {
            paths.append(directory.absoluteFilePath(name));
        }
        return paths;
    };

    TreeListing listing;
    QFileInfoList found = filesOf(QDir(source));
    QStringList pending = directoriesOf(QDir(source));
    while (!pending.isEmpty()) {
        const QString path = pending.takeFirst();
        const QDir directory(path);
        listing.directories.append(path.mid(source.size()));
        pending += directoriesOf(directory);
        found += filesOf(directory);
    }
    for (const QFileInfo &info : qAsConst(found)) {
        // asked anew: what the directory said of an entry is not all that counts here
        const QFileInfo target(info.absoluteFilePath());
        listing.files.enterDirectory(withFinalSlash(info.absolutePath()));
        listing.files.append(info.fileName(), info.size(), target.exists() && !target.isFile());
        listing.bytes += info.size();
    }
    return listing;
}

QStringList filesOf(const TreeListing &listing)
{
    QStringList lines;
    for (const FoundFile &file : listing.files) {
        lines.append(QStringLiteral("%1 %2%3").arg(file.size).arg(
            file.path, QLatin1String(file.isSpecial ? " (special)" : "")));
    }
    return lines;
}

// true, or a description of the first difference
QByteArray differenceBetween(const TreeListing &actual, const TreeListing &expected)
{
    const QPair<QStringList, QStringList> lists[] = {{actual.directories, expected.directories},
                                                     {filesOf(actual), filesOf(expected)}};
    for (const auto &list : lists) {
        for (int i = 0; i < qMax(list.first.size(), list.second.size()); ++i) {
            if (list.first.value(i) != list.second.value(i)) {
                return QStringLiteral("entry %1 is \"%2\", not \"%3\"")
                    .arg(i)
                    .arg(list.first.value(i), list.second.value(i))
                    .toUtf8();
            }
        }
    }
    return actual.bytes == expected.bytes ? QByteArray() : QByteArray("the sums differ");
}

/** Fills a folder with whatever a file system can hold, by the numbers of one seed. */
class RandomTree
{
public:
    RandomTree(const QByteArray &root, quint32 seed)
        : m_root(root)
        , m_random(seed)
    {
        makeTarget();
        fill(m_root + "/tree", 0);
    }

private:
    // lies beside the tree: a link into the tree itself would be walked for ever
    void makeTarget()
    {
        const QByteArray target = m_root + "/target";
        ::mkdir(target.constData(), 0755);
        ::mkdir((target + "/Sub").constData(), 0755);
        makeFile(target + "/Sub/inner", 3);
        makeFile(target + "/file", 7);
        ::mkfifo((target + "/fifo").constData(), 0644);
    }

    static void makeFile(const QByteArray &path, int size)
    {
        const int fd = ::open(path.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0644);
        if (fd >= 0) {
            if (::ftruncate(fd, size) != 0) {
                qFatal("cannot size %s", path.constData());
            }
            ::close(fd);
        }
    }

    static void makeSocket(const QByteArray &path)
    {
        sockaddr_un address = {};
        if (path.size() >= static_cast<int>(sizeof(address.sun_path))) {
            return;
        }
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));
        const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        // fails where the name is taken, which is as good
        const auto *where = reinterpret_cast<const sockaddr *>(&address);
        static_cast<void>(::bind(fd, where, sizeof(address)));
        ::close(fd);
    }

    int below(int limit) { return m_random.bounded(limit); }

    QByteArray name()
    {
        static const char *const parts[] = {
            "a",
            "A",
            "b",
            "B",
            "Zeta",
            "zeta",
            "10",
            "9",
            " ",
            ".",
            "-",
            "_",
            "~",
            "\xC3\xA4",
            "\xC3\x84", // small and capital a with diaeresis
            "\xC3\x9F",
            "\xC4\xB0", // sharp s; capital i with a dot, two units in lower case
            "\xCE\xA3",
            "\xCF\x82", // capital and final sigma
            "\xE6\xBC\xA2",
            "\xF0\x9F\x93\xB9", // a Chinese sign; a camera, outside the first plane
            "\xF0\x90\x90\x80",
            "\xF0\x90\x90\xA8", // capital and small letter of that kind
            "e\xCC\x81",
            "\xEF\xBB\xBF",
            "\xEF\xBF\xBD", // combining; byte order mark; replacement
            "\xFF",
            "\xC3",
            "\xED\xA0\x80",
            "\n",
            "\x01"}; // no UTF-8, three ways; control signs
        QByteArray result;
        for (int i = 1 + below(3); i > 0; --i) {
            result += parts[below(static_cast<int>(std::size(parts)))];
        }
        return result == "." || result == ".." ? QByteArray("dots") : result;
    }

    void fill(const QByteArray &folder, int depth)
    {
        if (::mkdir(folder.constData(), 0755) != 0) {
            return; // the name is taken, perhaps by a link to the target
        }
        for (int i = below(depth == 0 ? 30 : 8); i > 0; --i) {
            const QByteArray path = folder + '/' + name();
            const auto link = [&](const char *target) { ::symlink(target, path.constData()); };
            switch (below(14)) {
            case 0:
            case 1:
            case 2:
                if (depth < 3) {
                    fill(path, depth + 1);
                }
                break;
            case 3:
                link((m_root + "/target").constData());
                break;
            case 4:
                link((m_root + "/target/file").constData());
                break;
            case 5:
                link((m_root + "/target/fifo").constData());
                break;
            case 6:
                link("nowhere");
                break;
            case 7:
                link("/dev/null");
                break;
            case 8:
                ::mkfifo(path.constData(), 0644);
                break;
            case 9:
                makeSocket(path);
                break;
            case 10:
                if (::mkdir(path.constData(), 0755) == 0) {
                    makeFile(path + "/locked", 5);
                    ::chmod(path.constData(), 0);
                }
                break;
            default:
                makeFile(path, below(5000));
                break;
            }
        }
    }

    QByteArray m_root;
    QRandomGenerator m_random;
};

/** Takes root's all-seeing eyes away, for as long as the object lives. */
class OrdinaryUser
{
public:
    OrdinaryUser()
        : m_wasRoot(::geteuid() == 0)
    {
        if (m_wasRoot && ::seteuid(65534) != 0) {
            qFatal("cannot become an ordinary user");
        }
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && ::seteuid(0) != 0) {
            qFatal("cannot become root again");
        }
    }

    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    bool m_wasRoot;
};

} // namespace

Q_DECLARE_METATYPE(Test::FaultInjection::Call)

class tst_TreeWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listsBreadthFirstByNameIgnoringCase();
    void finalSlashMakesNoDifference();
    void missingOrOrdinaryFileIsEmpty();
    void emptyFolderIsEmpty();
    void equalsQDirOnRandomTrees_data();
    void equalsQDirOnRandomTrees();
    void equalsQDirWhereNamesDifferOnlyInCase();
    void linkToTheFolderAboveEndsWhereQDirEnds();
    void pathsBeyondTheSystemsLimitAreListedAsQDirDoes();
    void finalSlashIsNotDoubled();
    void tiesStandAsQDirLeavesThem_data();
    void tiesStandAsQDirLeavesThem();
    void unreadableDirectoriesAreNamedOnceInOrder();
    void rootThatIsMissingIsNamed();
    void whatIsNotThereHidesNothing();
    void linkIntoALockedDirectoryHidesSomething();
    void namesThatAreNotUtf8HideSomething();
    void eachFailingCallIsTold_data();
    void eachFailingCallIsTold();
    void abandonedWalkEnds();
    void resourcesAreListedAsQDirDoes();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    QScopedPointer<Test::TemporaryFolder> m_folder;
};

void tst_TreeWalk::init()
{
    m_folder.reset(new Test::TemporaryFolder);
    QVERIFY(m_folder->isValid());
    // an ordinary user looks, too
    QVERIFY(::chmod(m_folder->path().toUtf8().constData(), 0755) == 0);
}

void tst_TreeWalk::cleanup()
{
    Faults::stop();
    m_folder.reset();
}

void tst_TreeWalk::listsBreadthFirstByNameIgnoringCase()
{
    for (const char *name :
         {"t/b/1", "t/B2/x", "t/a/deep/f", "t/Z", "t/y", "t/.hidden/f", "t/.h"}) {
        Test::makeFile(path(name), "12345");
    }
    const TreeListing listing = listTree(path("t"));
    QCOMPARE(listing.directories,
             QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("B2"),
                          QStringLiteral("a/deep")}));
    QStringList names;
    for (const FoundFile &file : listing.files) {
        names.append(file.path.mid(path("t/").size()));
        QCOMPARE(file.size, Q_INT64_C(5));
    }
    QCOMPARE(names,
             QStringList({QStringLiteral("y"), QStringLiteral("Z"), QStringLiteral("b/1"),
                          QStringLiteral("B2/x"), QStringLiteral("a/deep/f")}));
    QCOMPARE(listing.bytes, Q_INT64_C(25));
}

void tst_TreeWalk::finalSlashMakesNoDifference()
{
    Test::makeFile(path("t/a/f"), "1");
    QCOMPARE(differenceBetween(listTree(path("t/")), listTree(path("t"))), QByteArray());
    QCOMPARE(listTree(path("t/")).directories, QStringList(QStringLiteral("a")));
}

void tst_TreeWalk::missingOrOrdinaryFileIsEmpty()
{
    Test::makeFile(path("f"), "1");
    for (const char *name : {"missing", "f"}) {
        const TreeListing listing = listTree(path(name));
        QVERIFY(listing.directories.isEmpty());
        QVERIFY(listing.files.isEmpty());
        QCOMPARE(listing.bytes, Q_INT64_C(0));
    }
}

void tst_TreeWalk::emptyFolderIsEmpty()
{
    QVERIFY(QDir().mkpath(path("t")));
    QVERIFY(listTree(path("t")).directories.isEmpty());
    QVERIFY(listTree(path("t")).files.isEmpty());
}

void tst_TreeWalk::equalsQDirOnRandomTrees_data()
{
    QTest::addColumn<quint32>("firstSeed");
    QTest::addColumn<bool>("ordinaryUser");
#ifdef OVO_SMALL
    constexpr quint32 groups = 2; // an emulated tablet would take ten minutes for the whole
#else
    constexpr quint32 groups = 10;
#endif
    for (quint32 group = 0; group < groups; ++group) {
        QTest::addRow("trees of group %u, all folders readable", group) << group * 100 << false;
        QTest::addRow("trees of group %u, some folders locked", group) << group * 100 << true;
    }
}

void tst_TreeWalk::equalsQDirOnRandomTrees()
{
    QFETCH(quint32, firstSeed);
    QFETCH(bool, ordinaryUser);
    QScopedPointer<OrdinaryUser> user;
    for (quint32 seed = firstSeed; seed < firstSeed + 100; ++seed) {
        const QString folder = path(QByteArray::number(seed).constData());
        QVERIFY(QDir().mkpath(folder));
        const RandomTree tree(folder.toUtf8(), seed);
        if (ordinaryUser) {
            user.reset(new OrdinaryUser);
        }
        const QString root = folder + QStringLiteral("/tree");
        const QByteArray difference = differenceBetween(listTree(root), listByQDir(root));
        const QByteArray differenceWithoutLinks =
            differenceBetween(listTree(root, Links::Refuse), listByQDir(root, Links::Refuse));
        user.reset();
        QVERIFY2(difference.isEmpty(), "seed " + QByteArray::number(seed) + ": " + difference);
        QVERIFY2(differenceWithoutLinks.isEmpty(),
                 "seed " + QByteArray::number(seed) + ", no links: " + differenceWithoutLinks);
    }
}

void tst_TreeWalk::equalsQDirWhereNamesDifferOnlyInCase()
{
    // all ways to write one name: enough of them for a sort to take its long way round
    for (int capitals = 0; capitals < 256; ++capitals) {
        QByteArray name = "abcdefgh";
        for (int i = 0; i < name.size(); ++i) {
            if ((capitals >> i) % 2 == 1) {
                name[i] = static_cast<char>(name.at(i) - 'a' + 'A');
            }
        }
        Test::makeFile(path("t/" + name + ".mp4"), "1");
        Test::makeFile(path("t/" + name + "/f"), "1");
        QVERIFY(QFile::link(path("t/" + name + "/f"), path("t/" + name + ".link")));
        QVERIFY(QFile::link(path("t/" + name), path("t/" + name + ".folder")));
    }
    QCOMPARE(differenceBetween(listTree(path("t")), listByQDir(path("t"))), QByteArray());
    QCOMPARE(
        differenceBetween(listTree(path("t"), Links::Refuse), listByQDir(path("t"), Links::Refuse)),
        QByteArray());
}

void tst_TreeWalk::linkToTheFolderAboveEndsWhereQDirEnds()
{
    Test::makeFile(path("t/a/f"), "1");
    QVERIFY(QFile::link(path("t"), path("t/a/up")));
    const TreeListing listing = listTree(path("t"));
    QVERIFY(listing.files.size() > 10);
    QCOMPARE(differenceBetween(listing, listByQDir(path("t"))), QByteArray());
}

void tst_TreeWalk::pathsBeyondTheSystemsLimitAreListedAsQDirDoes()
{
    // built from inside: no single path of that length can be named
    const QByteArray name(250, 'd');
    const QByteArray before = QDir::currentPath().toUtf8();
    QVERIFY(QDir().mkpath(path("t")));
    QCOMPARE(::chdir(path("t").toUtf8().constData()), 0);
    for (int i = 0; i < 20; ++i) {
        Test::makeFile(QStringLiteral("file") + QString(200, QLatin1Char('f')), "12");
        QCOMPARE(::mkdir(name.constData(), 0755), 0);
        QCOMPARE(::chdir(name.constData()), 0);
    }
    QCOMPARE(::chdir(before.constData()), 0);
    const TreeListing listing = listTree(path("t"));
    QCOMPARE(differenceBetween(listing, listByQDir(path("t"))), QByteArray());
    QCOMPARE(listing.unreadableDirectories.size(), 1);
    QVERIFY(listing.unreadableDirectories.at(0).toUtf8().size() >= PATH_MAX);
    QCOMPARE(listing.systemError, ENAMETOOLONG);
}

void tst_TreeWalk::finalSlashIsNotDoubled()
{
    // a folder of pseudo files, so that no one else changes it in between
    const TreeListing listing = listTree(QStringLiteral("/proc/sys/fs/epoll/"));
    QVERIFY(!listing.files.isEmpty());
    for (const FoundFile &file : listing.files) {
        QVERIFY(!file.path.contains(QStringLiteral("//")));
    }
}

void tst_TreeWalk::tiesStandAsQDirLeavesThem_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("letters");
    for (const int entries : {2, 5, 16, 17, 33, 100, 1000, 5000}) {
        for (const int letters : {4, 7, 12}) {
            QTest::addRow("%d entries, %d letters", entries, letters) << entries << letters;
        }
    }
}

// Few letters make nearly all names tie with others, many letters only a few of them.
void tst_TreeWalk::tiesStandAsQDirLeavesThem()
{
    QFETCH(int, entries);
    QFETCH(int, letters);
    for (int round = 0; round < (entries < 1000 ? 20 : 1); ++round) {
        const QString folder = path("t") + QString::number(round);
        QVERIFY(QDir().mkpath(folder));
        QRandomGenerator random(static_cast<quint32>(1000 * entries + 100 * letters + round));
        for (int i = 0; i < entries; ++i) {
            QByteArray name = folder.toUtf8() + '/';
            for (int k = 0; k < letters; ++k) {
                name += "aAbB"[random.bounded(k < 2 ? 2 : 4)];
            }
            if (random.bounded(8) == 0) {
                name += "\xC3\xA4";
            }
            if (random.bounded(4) == 0) {
                ::mkdir(name.constData(), 0755);
            } else {
                const int fd = ::open(name.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
                ::close(fd);
            }
        }
        const QByteArray difference = differenceBetween(listTree(folder), listByQDir(folder));
        QVERIFY2(difference.isEmpty(), difference.constData());
    }
}

void tst_TreeWalk::unreadableDirectoriesAreNamedOnceInOrder()
{
    for (const char *name :
         {"t/b/locked/f", "t/a/locked/f", "t/locked/f", "t/.locked/f", "t/z/f"}) {
        Test::makeFile(path(name), "1");
    }
    for (const char *name : {"t/b/locked", "t/a/locked", "t/locked", "t/.locked"}) {
        QCOMPARE(::chmod(path(name).toUtf8().constData(), 0), 0);
    }
    TreeListing listing;
    {
        const OrdinaryUser user;
        listing = listTree(path("t"));
    }
    QCOMPARE(listing.unreadableDirectories,
             QStringList({path("t/locked"), path("t/a/locked"), path("t/b/locked")}));
    QCOMPARE(listing.systemError, EACCES);
    QCOMPARE(listing.files.size(), 1);
    QVERIFY(listing.directories.contains(QStringLiteral("a/locked")));
}

void tst_TreeWalk::rootThatIsMissingIsNamed()
{
    Test::makeFile(path("f"), "1");
    QCOMPARE(listTree(path("missing/")).unreadableDirectories, QStringList(path("missing")));
    QCOMPARE(listTree(path("missing")).systemError, ENOENT);
    QCOMPARE(listTree(path("f")).unreadableDirectories, QStringList(path("f")));
    QCOMPARE(listTree(path("f")).systemError, ENOTDIR);
}

void tst_TreeWalk::whatIsNotThereHidesNothing()
{
    Test::makeFile(path("t/f"), "1");
    const QByteArray folder = path("t/").toUtf8();
    const auto link = [&folder](const char *name, const QByteArray &target) {
        return ::symlink(target.constData(), (folder + name).constData()) == 0;
    };
    QVERIFY(link("broken", "nowhere"));
    QVERIFY(link("below a file", "f/nowhere"));
    QVERIFY(link("itself", "itself"));
    QVERIFY(link("too long a name", QByteArray(300, 'n')));
    QVERIFY(link("above", "."));
    QCOMPARE(::mkfifo((folder + "fifo").constData(), 0644), 0);
    QCOMPARE(listTree(path("t")).unreadableDirectories, QStringList());
    QCOMPARE(listTree(path("t")).systemError, 0);
}

void tst_TreeWalk::linkIntoALockedDirectoryHidesSomething()
{
    Test::makeFile(path("locked/f"), "1");
    Test::makeFile(path("t/sub/g"), "1");
    QVERIFY(QFile::link(path("locked/f"), path("t/sub/link")));
    QCOMPARE(::chmod(path("locked").toUtf8().constData(), 0), 0);
    const OrdinaryUser user;
    const TreeListing listing = listTree(path("t"));
    QCOMPARE(listing.unreadableDirectories, QStringList(path("t/sub")));
    QCOMPARE(listing.systemError, EACCES);
    QCOMPARE(listing.files.size(), 1);
    QCOMPARE(listTree(path("t"), Links::Refuse).unreadableDirectories, QStringList());
}

void tst_TreeWalk::namesThatAreNotUtf8HideSomething()
{
    Test::makeFile(path("t/sub/g"), "1");
    const QByteArray folder = path("t/sub/").toUtf8();
    QCOMPARE(::symlink("nowhere", (folder + "\xff").constData()), 0);
    QCOMPARE(::mkfifo((folder + "\xfe").constData(), 0644), 0);
    QCOMPARE(::mkdir((folder + ".\xfd").constData(), 0755), 0);
    QCOMPARE(listTree(path("t")).unreadableDirectories, QStringList()); // nothing to be listed
    QCOMPARE(::mkdir((folder + "\xfc").constData(), 0755), 0);
    QCOMPARE(listTree(path("t")).unreadableDirectories, QStringList(path("t/sub")));
    QCOMPARE(listTree(path("t")).systemError, EILSEQ);
}

void tst_TreeWalk::eachFailingCallIsTold_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<bool>("hidesTypes");
    QTest::newRow("opening a directory") << Call::OpenDirectory << false;
    QTest::newRow("reading a directory") << Call::ReadDirectory << false;
    QTest::newRow("examining an entry") << Call::Examine << false;
    QTest::newRow("opening a directory without types") << Call::OpenDirectory << true;
    QTest::newRow("reading a directory without types") << Call::ReadDirectory << true;
    QTest::newRow("examining an entry without types") << Call::Examine << true;
}

void tst_TreeWalk::eachFailingCallIsTold()
{
    QFETCH(Call, call);
    QFETCH(bool, hidesTypes);
    for (const char *name : {"t/a/f", "t/a/F", "t/a/deep/f", "t/A/g", "t/b", "t/B", "t/.h",
                             "t/empty/.h", "beside/k"}) {
        Test::makeFile(path(name), "12");
    }
    QVERIFY(QFile::link(path("beside"), path("t/a/link")));
    QVERIFY(QFile::link(path("beside/k"), path("t/link")));
    const auto namesOf = [](const TreeListing &listing) {
        QStringList names = listing.directories;
        for (const FoundFile &file : listing.files) {
            names.append(file.path);
        }
        return names;
    };
    for (const Links links : {Links::Follow, Links::Refuse}) {
        const QStringList all = namesOf(listTree(path("t"), links));
        for (const int error : {EIO, EACCES, EMFILE, ENOMEM, EOVERFLOW}) {
            for (const bool lasts : {false, true}) {
                int n = 0;
                for (bool hasStruck = true; hasStruck;) {
                    Faults::watch(m_folder->path());
                    if (hidesTypes) {
                        Faults::hideEntryTypes();
                    }
                    (lasts ? Faults::failFrom : Faults::failNth)(call, ++n, error);
                    const TreeListing listing = listTree(path("t"), links);
                    hasStruck = Faults::hasStruck();
                    Faults::stop();
                    const QByteArray where =
                        QByteArray::number(n) + ": errno " + QByteArray::number(error);
                    const bool isWhole = namesOf(listing) == all;
                    QVERIFY2(isWhole || !listing.unreadableDirectories.isEmpty(), where);
                    QVERIFY2(hasStruck || isWhole, where);
                    QVERIFY2(listing.unreadableDirectories.isEmpty() || hasStruck, where);
                    QCOMPARE(listing.systemError,
                             listing.unreadableDirectories.isEmpty() ? 0 : error);
                }
                QVERIFY(n > 1 || (call == Call::Examine && links == Links::Refuse));
            }
        }
    }
}

void tst_TreeWalk::abandonedWalkEnds()
{
    // each directory holds two more of itself, down to the fortieth link
    Test::makeFile(path("t/f"), "1");
    QVERIFY(QFile::link(QStringLiteral("."), path("t/a")));
    QVERIFY(QFile::link(QStringLiteral("."), path("t/b")));
    std::atomic<bool> abandoned{false};
    Faults::watch(m_folder->path());
    std::thread walk([&] { listTree(path("t"), Links::Follow, &abandoned); });
    const bool isUnderWay =
        QTest::qWaitFor([] { return Faults::count(Call::OpenDirectory) > 100; }, 30000);
    abandoned = true;
    walk.join();
    QVERIFY(isUnderWay);

    const int opened = Faults::count(Call::OpenDirectory);
    QVERIFY(listTree(path("t"), Links::Follow, &abandoned).directories.isEmpty());
    QVERIFY(Faults::count(Call::OpenDirectory) <= opened + 1);
}

void tst_TreeWalk::resourcesAreListedAsQDirDoes()
{
    const QString root = QStringLiteral(":/samples/tree");
    const TreeListing listing = listTree(root);
    QCOMPARE(differenceBetween(listing, listByQDir(root)), QByteArray());
    QCOMPARE(listing.directories, QStringList(QStringLiteral("sub")));
    QCOMPARE(listing.files.size(), 4); // nothing is hidden among resources
    QCOMPARE(listing.bytes, Q_INT64_C(26));
    QCOMPARE(listing.unreadableDirectories, QStringList());
    QCOMPARE(listTree(QStringLiteral(":/missing")).unreadableDirectories,
             QStringList(QStringLiteral(":/missing")));
}

QTEST_GUILESS_MAIN(tst_TreeWalk)

#include "tst_TreeWalk.moc"
