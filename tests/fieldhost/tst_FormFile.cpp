// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"
#include "fieldhost/forms/FormFile.h"
#include "host/CCatalogTemplate.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "tests/support/FileTree.h"

#include <QTest>

using namespace Test;
using namespace Tavro::FieldHost;
using Tavro::Shared::CInputType;

/** The files that tell how a catalog's columns are edited. */
class tst_FormFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyIsRead();
    void whatIsLeftOutIsNotSet();
    void samplesSuitTheirCatalogs_data();
    void samplesSuitTheirCatalogs();
    void aMistakeIsNamed_data();
    void aMistakeIsNamed();
    void aFileThatIsNoneIsNotOpened();
};

void tst_FormFile::everyKeyIsRead()
{
    const TemporaryFolder directory;
    const QString path = directory.filePath(QStringLiteral("form.json"));
    makeFile(path, R"({"format": 1,
        "codeLists": {"m": [{"code": "A", "text": "Alpha"}, {"code": "B", "text": "Beta"}]},
        "columns": {"C": {"caption": "Cap", "type": "DEC", "mandatory": true, "list": "m",
                          "editableList": true, "maximumLength": 7, "minimum": -1.5,
                          "maximum": "9", "displayFormat": "0.0", "control": "NumericUpDn"}}})");
    QString error = QStringLiteral("of another file");
    const auto form = readForm(path, error);
    QVERIFY2(form, qPrintable(error));
    QCOMPARE(error, QString());
    QCOMPARE(form->keys(), QStringList{QStringLiteral("C")});
    const ColumnForm column = form->first();
    QCOMPARE(column.caption, QStringLiteral("Cap"));
    QCOMPARE(column.dataType, QStringLiteral("DEC"));
    QVERIFY(column.isMandatory);
    QVERIFY(column.isListEditable);
    QCOMPARE(column.maximumTextLength, 7);
    QCOMPARE(column.minimumValue, QVariant(-1.5));
    QCOMPARE(column.maximumValue, QVariant(QStringLiteral("9")));
    QCOMPARE(column.displayFormat, QStringLiteral("0.0"));
    QCOMPARE(column.control, CInputType::NumericUpDn);
    QCOMPARE(column.codeList.size(), 2);
    QCOMPARE(column.codeList.at(1).code(), QStringLiteral("B"));
    QCOMPARE(column.codeList.at(1).text(), QStringLiteral("Beta"));
    QCOMPARE(column.codeList.at(1).objectId(), QStringLiteral("m"));
}

void tst_FormFile::whatIsLeftOutIsNotSet()
{
    const TemporaryFolder directory;
    const QString path = directory.filePath(QStringLiteral("form.json"));
    makeFile(path, R"({"format": 1, "columns": {"C": {}}})");
    QString error;
    const auto form = readForm(path, error);
    QVERIFY2(form, qPrintable(error));
    const ColumnForm column = form->first();
    QCOMPARE(column.caption, QString());
    QVERIFY(!column.isMandatory);
    QVERIFY(column.codeList.isEmpty());
    QCOMPARE(column.maximumTextLength, 0);
    QVERIFY(!column.minimumValue.isValid());
    QVERIFY(!column.maximumValue.isValid());
    QCOMPARE(column.control, CInputType::Unknown);
}

void tst_FormFile::samplesSuitTheirCatalogs_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"metric", "inspection"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void tst_FormFile::samplesSuitTheirCatalogs()
{
    QFETCH(QString, name);

    QString formError;
    const auto form =
        readForm(QStringLiteral(OVO_SAMPLE_FORMS "/%1-form.json").arg(name), formError);
    QVERIFY2(form, qPrintable(formError));
    CatalogFiles catalogs;
    CatalogError error;
    const CatalogDescriptor *catalog =
        catalogs.load(QStringLiteral(OVO_SAMPLE_CATALOGS "/%1.json").arg(name), error);
    QVERIFY2(catalog, qPrintable(error.cause));
    const auto catalogTemplate = catalogs.getTemplateFromCache(catalog->templateId);
    for (int i = 0; i < catalogTemplate->programViewCount(); ++i) {
        const auto *view = catalogTemplate->programView(i);
        for (int j = 0; j < view->columnCount(); ++j) {
            const QString key = view->column(j)->key();
            QVERIFY2(form->contains(key), qPrintable(key));
            QVERIFY2(!form->value(key).caption.isEmpty(), qPrintable(key));
        }
    }
}

void tst_FormFile::aMistakeIsNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *name, const char *content, const char *error) {
        QTest::newRow(name) << QByteArray(content) << QString::fromUtf8(error);
    };
    row("no JSON", "{", "unterminated object");
    row("a list", "[]", "it is not an object");
    row("no format", R"({"columns": {}})", R"("format" is not 1, the only one known)");
    row("another format", R"({"format": 2})", R"("format" is not 1, the only one known)");
    row("unknown key", R"({"format": 1, "column": {}})", R"(the form has no key "column")");
    row("unknown key of a column", R"({"format": 1, "columns": {"C": {"captoin": "x"}}})",
        R"(column "C": a column has no key "captoin")");
    row("no text", R"({"format": 1, "columns": {"C": {"caption": 1}}})",
        R"(column "C": "caption" is not a text)");
    row("no flag", R"({"format": 1, "columns": {"C": {"mandatory": "yes"}}})",
        R"(column "C": "mandatory" is neither true nor false)");
    row("no length", R"({"format": 1, "columns": {"C": {"maximumLength": "7"}}})",
        R"(column "C": "maximumLength" is not a length)");
    row("negative length", R"({"format": 1, "columns": {"C": {"maximumLength": -7}}})",
        R"(column "C": "maximumLength" is not a length)");
    row("column that is a text", R"({"format": 1, "columns": {"C": "x"}})",
        R"(column "C": it is not an object)");
    row("list of columns", R"({"format": 1, "columns": []})", R"("columns" is not an object)");
    row("entry that is a text", R"({"format": 1, "codeLists": {"m": ["x"]}})",
        R"(code list "m": an entry is not an object)");
    row("unknown control", R"({"format": 1, "columns": {"C": {"control": "Knob"}}})",
        R"(column "C": there is no control "Knob")");
    row("unknown list", R"({"format": 1, "columns": {"C": {"list": "m"}}})",
        R"(column "C": there is no code list "m")");
    row("empty list", R"({"format": 1, "codeLists": {"m": []}})",
        R"(code list "m": it has no entries)");
    row("unknown key of an entry", R"({"format": 1, "codeLists": {"m": [{"value": "x"}]}})",
        R"(code list "m": an entry has no key "value")");
}

void tst_FormFile::aMistakeIsNamed()
{
    QFETCH(QByteArray, content);

    const TemporaryFolder directory;
    const QString path = directory.filePath(QStringLiteral("form.json"));
    makeFile(path, content);
    QString error;
    QVERIFY(!readForm(path, error));
    QTEST(error, "error");
}

void tst_FormFile::aFileThatIsNoneIsNotOpened()
{
    const TemporaryFolder directory;
    for (const QString &path : {directory.path(), directory.filePath(QStringLiteral("missing"))}) {
        QString error;
        QVERIFY(!readForm(path, error));
        QCOMPARE(error, QStringLiteral("it cannot be read"));
    }
}

QTEST_GUILESS_MAIN(tst_FormFile)

#include "tst_FormFile.moc"
