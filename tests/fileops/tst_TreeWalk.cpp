#include "shared/fileops/detail/TreeWalk.h"
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

#include <cstring>

using Tavro::Shared::CFileEntry;
using Tavro::Shared::detail::Links;
using Tavro::Shared::detail::listTree;
using Tavro::Shared::detail::TreeListing;

namespace {

// The walk as its contract words it, by QDir and nothing else.
TreeListing listByQDir(const QString &root, Links links = Links::Follow)
{
    const QDir::Filters more =
        links == Links::LeaveOut ? QDir::Filters(QDir::NoSymLinks) : QDir::Filters();
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
        listing.files.append(CFileEntry(info.absoluteFilePath(), info.size()));
        // asked anew: what the directory said of an entry is not all that counts here
        const QFileInfo target(info.absoluteFilePath());
        if (target.exists() && !target.isFile()) {
            listing.specialFiles.insert(info.absoluteFilePath());
        }
        listing.bytes += info.size();
    }
    return listing;
}

QStringList filesOf(const TreeListing &listing)
{
    QStringList lines;
    for (const CFileEntry &file : listing.files) {
        const bool isSpecial = listing.specialFiles.contains(file.path());
        lines.append(QStringLiteral("%1 %2%3")
                         .arg(file.size())
                         .arg(file.path(), QLatin1String(isSpecial ? " (special)" : "")));
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
    for (const CFileEntry &file : listing.files) {
        names.append(file.path().mid(path("t/").size()));
        QCOMPARE(file.size(), Q_INT64_C(5));
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
    for (quint32 group = 0; group < 10; ++group) {
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
            differenceBetween(listTree(root, Links::LeaveOut), listByQDir(root, Links::LeaveOut));
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
    QCOMPARE(differenceBetween(listTree(path("t"), Links::LeaveOut),
                               listByQDir(path("t"), Links::LeaveOut)),
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
    QCOMPARE(differenceBetween(listTree(path("t")), listByQDir(path("t"))), QByteArray());
}

void tst_TreeWalk::finalSlashIsNotDoubled()
{
    // a folder of pseudo files, so that no one else changes it in between
    const TreeListing listing = listTree(QStringLiteral("/proc/sys/fs/epoll/"));
    QVERIFY(!listing.files.isEmpty());
    for (const CFileEntry &file : listing.files) {
        QVERIFY(!file.path().contains(QStringLiteral("//")));
    }
}

QTEST_GUILESS_MAIN(tst_TreeWalk)

#include "tst_TreeWalk.moc"
