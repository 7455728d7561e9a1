// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"

#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "tests/support/FileTree.h"

#include <QFile>
#include <QTest>

#include <limits>
#include <memory>

#include <sys/stat.h>

using namespace Tavro::FieldHost;
using Tavro::CATManagement::CCatalogTemplateRegistry;
using Tavro::CATManagement::CTemplateManager;
using Tavro::Templates::CCatalogTemplate;
using Tavro::Templates::CProgramView;

namespace {

const char s_wholeCatalog[] = R"({
  "format": 1,
  "id": "c",
  "name": "Caf\u00e9",
  "country": "CH",
  "language": "DEU",
  "template": {
    "id": "t",
    "unit": "ft",
    "views": [
      { "key": "overview_s", "columns": [] },
      { "key": "detail_s", "columns": [ { "key": "A", "unit": "mm" }, { "key": "B" } ] }
    ]
  }
})";

// the same with one part replaced
QByteArray catalogWith(const char *part, const char *replacement)
{
    QByteArray content(s_wholeCatalog);
    Q_ASSERT(content.count(part) == 1);
    return content.replace(part, replacement);
}

// "key unit|key unit" of each view, after the view's own key
QStringList columnsOf(const CCatalogTemplate &catalogTemplate)
{
    QStringList lines;
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        const CProgramView *view = catalogTemplate.programView(i);
        QStringList columns;
        for (int j = 0; j < view->columnCount(); ++j) {
            columns += view->column(j)->key() + QLatin1Char(' ') + view->column(j)->unit();
        }
        lines += view->key() + QLatin1String(": ") + columns.join(QLatin1Char('|'));
    }
    return lines;
}

} // namespace

/** The host's catalogs: what is read from good files, and what is said of bad ones. */
class tst_CatalogFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aCatalogIsReadWhole();
    void theHostFindsBothById();
    void anIndexOutsideGivesNull();
    void templatesOutliveTheCatalogs();
    void descriptorsStayWhereTheyAre();
    void theSamplesAreGood_data();
    void theSamplesAreGood();
    void theDocumentedCatalogIsGood();
    void aMissingUnitIsEmpty();
    void aByteOrderMarkIsNoCharacter();

    void mistakesAreNamedWithTheirPlace_data();
    void mistakesAreNamedWithTheirPlace();
    void anIdIsTakenOnce_data();
    void anIdIsTakenOnce();
    void aRefusedFileLeavesTheOthers();
    void whatCannotBeReadHasNoPlace_data();
    void whatCannotBeReadHasNoPlace();
    void theLargestFileIsRead();
    void noCutAndNoWrongByteIsTooMuch();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &content) const;
    const CatalogDescriptor *load(const QByteArray &content);

    std::unique_ptr<Test::TemporaryFolder> m_folder;
    std::unique_ptr<CatalogFiles> m_catalogs;
    CatalogError m_error;
};

void tst_CatalogFiles::init()
{
    m_folder = std::make_unique<Test::TemporaryFolder>();
    QVERIFY(m_folder->isValid());
    m_catalogs = std::make_unique<CatalogFiles>();
    m_error = {};
}

void tst_CatalogFiles::cleanup()
{
    m_catalogs.reset();
    m_folder.reset();
}

QString tst_CatalogFiles::write(const char *name, const QByteArray &content) const
{
    Test::makeFile(path(name), content);
    return path(name);
}

const CatalogDescriptor *tst_CatalogFiles::load(const QByteArray &content)
{
    return m_catalogs->load(write("catalog.json", content), m_error);
}

void tst_CatalogFiles::aCatalogIsReadWhole()
{
    const CatalogDescriptor *catalog = load(s_wholeCatalog);
    QVERIFY2(catalog, qPrintable(m_error.cause));
    QCOMPARE(catalog->id, QStringLiteral("c"));
    QCOMPARE(catalog->name, QStringLiteral("Caf\u00e9"));
    QCOMPARE(catalog->countryCode, QStringLiteral("CH"));
    QCOMPARE(catalog->languageCode, QStringLiteral("DEU"));
    QCOMPARE(catalog->templateId, QStringLiteral("t"));
    QCOMPARE(catalog->file, path("catalog.json"));

    const auto catalogTemplate = m_catalogs->getTemplateFromCache(QStringLiteral("t"));
    QVERIFY(catalogTemplate);
    QCOMPARE(catalogTemplate->unit(), QStringLiteral("ft"));
    QCOMPARE(columnsOf(*catalogTemplate),
             (QStringList{QStringLiteral("overview_s: "), QStringLiteral("detail_s: A mm|B ")}));
}

void tst_CatalogFiles::theHostFindsBothById()
{
    const CatalogDescriptor *catalog = load(s_wholeCatalog);
    QVERIFY(catalog);

    CTemplateManager &templateManager = *m_catalogs;
    const CCatalogTemplateRegistry &registry = *m_catalogs;
    QCOMPARE(registry.catalogByUniqueId(QStringLiteral("c")), catalog);
    QVERIFY(!registry.catalogByUniqueId(QStringLiteral("C")));
    QVERIFY(!registry.catalogByUniqueId(QString()));

    const auto first = templateManager.getTemplateFromCache(QStringLiteral("t"));
    QVERIFY(first);
    QCOMPARE(templateManager.getTemplateFromCache(QStringLiteral("t")), first);
    QVERIFY(!templateManager.getTemplateFromCache(QStringLiteral("T")));
    QVERIFY(!templateManager.getTemplateFromCache(QString()));
}

void tst_CatalogFiles::anIndexOutsideGivesNull()
{
    QVERIFY(load(s_wholeCatalog));
    const auto catalogTemplate = m_catalogs->getTemplateFromCache(QStringLiteral("t"));
    QCOMPARE(catalogTemplate->programViewCount(), 2);
    const CProgramView *view = catalogTemplate->programView(1);
    QCOMPARE(view->columnCount(), 2);

    for (const int outside : {-1, 2, std::numeric_limits<int>::min()}) {
        QVERIFY(!catalogTemplate->programView(outside));
        QVERIFY(!view->column(outside));
    }
    QVERIFY(!catalogTemplate->programView(0)->column(0));
}

void tst_CatalogFiles::templatesOutliveTheCatalogs()
{
    QVERIFY(load(s_wholeCatalog));
    const auto catalogTemplate = m_catalogs->getTemplateFromCache(QStringLiteral("t"));
    m_catalogs.reset();
    QCOMPARE(columnsOf(*catalogTemplate).size(), 2);
}

void tst_CatalogFiles::descriptorsStayWhereTheyAre()
{
    const CatalogDescriptor *first = load(s_wholeCatalog);
    QVERIFY(first);
    for (int i = 0; i < 50; ++i) {
        QByteArray content = catalogWith("\"c\"", "\"c" + QByteArray::number(i) + '"');
        content.replace("\"t\"", "\"t" + QByteArray::number(i) + '"');
        QVERIFY2(load(content), qPrintable(m_error.cause));
    }
    QCOMPARE(m_catalogs->catalogByUniqueId(QStringLiteral("c")), first);
    QCOMPARE(first->id, QStringLiteral("c"));
}

void tst_CatalogFiles::theSamplesAreGood_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("columnUnit");

    QTest::newRow("metric") << "metric"
                            << "m"
                            << "SEC_Height mm";
    QTest::newRow("imperial") << "imperial"
                              << "ft"
                              << "SEC_Height inch";
    QTest::newRow("inches") << "inches"
                            << "inch"
                            << "SEC_Height inch";
    QTest::newRow("inspection") << "inspection"
                                << "m"
                                << "OBJ_Size mm";
}

void tst_CatalogFiles::theSamplesAreGood()
{
    QFETCH(QString, name);
    QFETCH(QString, columnUnit);

    const QString file = QStringLiteral(OVO_SAMPLE_CATALOGS "/%1.json").arg(name);
    const CatalogDescriptor *catalog = m_catalogs->load(file, m_error);
    QVERIFY2(catalog, qPrintable(m_error.cause));
    QCOMPARE(catalog->id, QStringLiteral("sample-") + name);
    const auto catalogTemplate = m_catalogs->getTemplateFromCache(catalog->templateId);
    QTEST(catalogTemplate->unit(), "unit");
    const QString details = columnsOf(*catalogTemplate).constFirst();
    QVERIFY(details.startsWith(QLatin1String("detail_s: ")));
    QVERIFY(details.contains(columnUnit));
}

void tst_CatalogFiles::theDocumentedCatalogIsGood()
{
    const QByteArray page = Test::contentOf(QStringLiteral(OVO_CATALOG_PAGE));
    const QByteArray fence = "\n```json\n";
    QCOMPARE(page.count(fence), 1);
    const int begin = page.indexOf(fence) + fence.size();
    const QByteArray example = page.mid(begin, page.indexOf("\n```\n", begin) - begin);
    QVERIFY2(load(example), qPrintable(m_error.cause));
}

void tst_CatalogFiles::aMissingUnitIsEmpty()
{
    QVERIFY2(load(catalogWith("\"unit\": \"ft\",", "")), qPrintable(m_error.cause));
    QCOMPARE(m_catalogs->getTemplateFromCache(QStringLiteral("t"))->unit(), QString());
}

void tst_CatalogFiles::aByteOrderMarkIsNoCharacter()
{
    QVERIFY(load(QByteArray("\xef\xbb\xbf") + s_wholeCatalog));
    QVERIFY(!load("\xef\xbb\xbf x"));
    QCOMPARE(m_error.column, 2);
}

void tst_CatalogFiles::mistakesAreNamedWithTheirPlace_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("place"); // line:column
    QTest::addColumn<QString>("cause");

    // what is no JSON
    QTest::newRow("nothing at all") << QByteArray() << "1:1"
                                    << "the file is empty";
    QTest::newRow("only blanks") << QByteArray("\n \n\t") << "1:1"
                                 << "the file is empty";
    QTest::newRow("a word") << QByteArray("catalog") << "1:1"
                            << "this is not a JSON value";
    QTest::newRow("a bare number") << QByteArray("12") << "1:1"
                                   << "this is not a JSON value";
    QTest::newRow("a comment") << QByteArray("\n// c\n{}") << "2:1"
                               << "this is not a JSON value";
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe{\0", 4) << "1:1"
                            << "this is not a JSON value";
    QTest::newRow("cut after a brace") << QByteArray("{\n") << "1:2"
                                       << "the file ends too early";
    QTest::newRow("cut after a number") << QByteArray("{\"format\": 1") << "1:13"
                                        << "the file ends too early";
    QTest::newRow("cut after a comma") << QByteArray("{\"format\": 1,\n\n") << "1:14"
                                       << "the file ends too early";
    QTest::newRow("cut in a text") << QByteArray("{\"id\": \"c") << "1:10"
                                   << "the file ends too early";
    QTest::newRow("a quotation mark forgotten") << catalogWith("\"c\"", "\"c") << "4:4"
                                                << R"(expected a key in double quotes, "," or "}")";
    QTest::newRow("a comma forgotten") << catalogWith("1,", "1") << "3:3"
                                       << R"(expected a key in double quotes, "," or "}")";
    QTest::newRow("a comma too many")
        << catalogWith("{ \"key\": \"B\" } ]", "{ \"key\": \"B\" }, ]") << "12:87"
        << "something is missing before this";
    QTest::newRow("a comma forgotten in a list") << catalogWith("\"mm\" },", "\"mm\" }") << "12:71"
                                                 << R"(expected "," or "]")";
    QTest::newRow("a colon forgotten") << catalogWith("\"id\": \"c\"", "\"id\" \"c\"") << "3:8"
                                       << R"(expected ":")";
    QTest::newRow("the wrong bracket") << catalogWith("\"B\" } ]", "\"B\" } }") << "12:87"
                                       << R"(expected "," or "]")";
    QTest::newRow("a key without quotes") << catalogWith("\"name\"", "name") << "4:3"
                                          << R"(expected a key in double quotes, "," or "}")";
    QTest::newRow("a number out of range") << catalogWith("1,", "1e999,") << "2:13"
                                           << "this is not a number, or too large a one";
    QTest::newRow("a number that is none") << catalogWith("1,", "-,") << "2:13"
                                           << "this is not a number, or too large a one";
    QTest::newRow("an escape sequence that is none") << catalogWith("\\u00e9", "\\u00g9") << "4:19"
                                                     << "invalid escape sequence";
    QTest::newRow("Latin-1") << catalogWith("\\u00e9", "\xe9") << "4:15"
                             << "this is not UTF-8";
    QTest::newRow("something after the end") << QByteArray(s_wholeCatalog) + "\n {}"
                                             << "16:2"
                                             << "the catalog has ended before this";
    QTest::newRow("a thousand brackets") << QByteArray(2000, '[') << "1:1025"
                                         << "nested too deeply";
    QTest::newRow("columns count characters, and lines may end in CR LF")
        << QByteArray("{\r\n\"id\": \"\xf0\x9f\x98\x80\xc3\xa9\" 1}") << "2:12"
        << R"(expected a key in double quotes, "," or "}")";

    // what is JSON, and no catalog
    QTest::newRow("a list") << QByteArray("[]") << "1:1"
                            << "a catalog is an object, this is a list";
    QTest::newRow("no format") << catalogWith("\"format\": 1,", "") << "1:1"
                               << R"(a catalog needs the key "format")";
    QTest::newRow("another format, with other keys")
        << catalogWith("1,", "2, \"units\": {},") << "2:13"
        << "this is format 2, and only format 1 is known";
    QTest::newRow("a format in quotes") << catalogWith("1,", "\"1\",") << "2:13"
                                        << R"("format" is a number, this is a text)";
    QTest::newRow("no template") << QByteArray(
        R"({"format":1, "id":"c", "name":"n", "country":"D", "language":"DEU"})")
                                 << "1:1"
                                 << R"(a catalog needs the key "template")";
    QTest::newRow("an empty id") << catalogWith("\"c\"", "\"\"") << "3:9"
                                 << R"("id" is empty)";
    QTest::newRow("a number for a name") << catalogWith("\"Caf\\u00e9\"", "7") << "4:11"
                                         << R"("name" is a text, this is a number)";
    QTest::newRow("null for a country") << catalogWith("\"CH\"", "null") << "5:14"
                                        << R"("country" is a text, this is null)";
    QTest::newRow("true for a language") << catalogWith("\"DEU\"", "true") << "6:15"
                                         << R"("language" is a text, this is true or false)";
    QTest::newRow("an empty language") << catalogWith("\"DEU\"", "\"\"") << "6:15"
                                       << R"("language" is empty)";
    QTest::newRow("a key twice") << catalogWith("\"name\"", "\"id\"") << "4:3"
                                 << R"(the key "id" is there twice)";
    QTest::newRow("a key twice, of another shape, once in escapes")
        << catalogWith("\"format\": 1", "\"format\": 1, \"f\\u006frmat\": [{\"x\": [2]}]") << "2:16"
        << R"(the key "format" is there twice)";
    QTest::newRow("a template that is a text")
        << QByteArray(R"({"format":1, "id":"c", "name":"n", "country":"D", "language":"DEU",)"
                      "\n \"template\": \"t\"}")
        << "2:14"
        << "a template is an object, this is a text";
    QTest::newRow("a key misspelled in the template")
        << catalogWith("\"unit\": \"ft\"", "\"untis\": \"ft\"") << "9:5"
        << R"(the key "untis" is not among those of a template: "id", "unit", "views")";
    QTest::newRow("a unit that is a list") << catalogWith("\"ft\"", "[\"ft\"]") << "9:13"
                                           << R"("unit" is a text, this is a list)";
    QTest::newRow("columns that are an object") << catalogWith("[]", "{}") << "11:41"
                                                << R"("columns" is a list, this is an object)";
    QTest::newRow("a view without columns") << catalogWith(", \"columns\": []", "") << "11:7"
                                            << R"(a view needs the key "columns")";
    QTest::newRow("a column that is a text")
        << catalogWith("{ \"key\": \"B\" }", "\"B\"") << "12:71"
        << "a column is an object, this is a text";
    QTest::newRow("a column without a key")
        << catalogWith("\"key\": \"B\"", "\"unit\": \"B\"") << "12:71"
        << R"(a column needs the key "key")";
    QTest::newRow("a column of null unit") << catalogWith("\"mm\"", "null") << "12:63"
                                           << R"("unit" is a text, this is null)";
}

void tst_CatalogFiles::mistakesAreNamedWithTheirPlace()
{
    QFETCH(QByteArray, content);

    QVERIFY(!load(content));
    QTEST(m_error.cause, "cause");
    QTEST(QStringLiteral("%1:%2").arg(m_error.line).arg(m_error.column), "place");
    QCOMPARE(m_error.file, path("catalog.json"));
    QVERIFY(!m_catalogs->catalogByUniqueId(QStringLiteral("c")));
    QVERIFY(!m_catalogs->getTemplateFromCache(QStringLiteral("t")));
}

void tst_CatalogFiles::anIdIsTakenOnce_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("cause");

    QTest::newRow("the catalog's")
        << catalogWith("\"t\"", "\"u\"") << 3 << R"(the catalog id "c" is taken by "%1")";
    QTest::newRow("the template's")
        << catalogWith("\"c\"", "\"d\"") << 8 << R"(the template id "t" is taken by "%1")";
    QTest::newRow("the same file again")
        << QByteArray(s_wholeCatalog) << 3 << R"(the catalog id "c" is taken by "%1")";
}

void tst_CatalogFiles::anIdIsTakenOnce()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, cause);

    const QString first = write("first.json", s_wholeCatalog);
    QVERIFY(m_catalogs->load(first, m_error));
    QVERIFY(!m_catalogs->load(write("second.json", content), m_error));
    QCOMPARE(m_error.file, path("second.json"));
    QTEST(m_error.line, "line");
    QCOMPARE(m_error.cause, cause.arg(first));
}

void tst_CatalogFiles::aRefusedFileLeavesTheOthers()
{
    const CatalogDescriptor *first = m_catalogs->load(write("first.json", s_wholeCatalog), m_error);
    QVERIFY(first);
    QVERIFY(!m_catalogs->load(write("second.json", "{"), m_error));
    QCOMPARE(m_catalogs->catalogByUniqueId(QStringLiteral("c")), first);
    QVERIFY(m_catalogs->getTemplateFromCache(QStringLiteral("t")));
}

void tst_CatalogFiles::whatCannotBeReadHasNoPlace_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("cause");

    QTest::newRow("nothing there") << "none.json"
                                   << "there is no such file";
    QTest::newRow("a link that leads nowhere") << "link.json"
                                               << "there is no such file";
    QTest::newRow("no name") << ""
                             << "there is no such file";
    QTest::newRow("a directory") << "directory"
                                 << "it is not a file";
    QTest::newRow("a pipe that nobody writes to") << "pipe"
                                                  << "it is not a file";
    QTest::newRow("too large") << "large.json"
                               << "it is larger than 16 MiB";
}

void tst_CatalogFiles::whatCannotBeReadHasNoPlace()
{
    QFETCH(QString, name);

    QVERIFY(QFile::link(path("none"), path("link.json")));
    Test::makeFile(path("directory/file"));
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QFile large(write("large.json", "{"));
    QVERIFY(large.resize(16 * 1024 * 1024 + 1));

    const QString file = name.isEmpty() ? name : m_folder->filePath(name);
    QVERIFY(!m_catalogs->load(file, m_error));
    QTEST(m_error.cause, "cause");
    QCOMPARE(m_error.file, file);
    QCOMPARE(m_error.line, 0);
    QCOMPARE(m_error.column, 0);
}

void tst_CatalogFiles::theLargestFileIsRead()
{
    QVERIFY(load(QByteArray(s_wholeCatalog).leftJustified(16 * 1024 * 1024, '\n')));
}

void tst_CatalogFiles::noCutAndNoWrongByteIsTooMuch()
{
    const QByteArray whole(s_wholeCatalog);
    const auto isSaid = [this](const QByteArray &content) {
        CatalogFiles catalogs;
        CatalogError error;
        if (catalogs.load(write("broken.json", content), error)) {
            return true;
        }
        return !error.cause.isEmpty() && error.line >= 1 && error.line <= 16 && error.column >= 1;
    };
    for (int i = 0; i < whole.size(); ++i) {
        QVERIFY2(!m_catalogs->load(write("cut.json", whole.left(i)), m_error),
                 qPrintable(QString::number(i)));
        QVERIFY(!m_error.cause.isEmpty() && m_error.line >= 1 && m_error.column >= 1);
        for (const char wrong : {'"', '\\', '}', ',', '1', '\xff'}) {
            QByteArray content = whole;
            content[i] = wrong;
            QVERIFY2(isSaid(content), content.constData());
        }
    }
}

QTEST_GUILESS_MAIN(tst_CatalogFiles)

#include "tst_CatalogFiles.moc"
