// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/forms/InspectionForm.h"
#include "shared/view3d/ProjectTypeGlobal.h"
#include "tests/input/CurrentLocale.h"
#include "tests/support/FileTree.h"

#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <memory>

using namespace Tavro::FieldHost;
using namespace Test;
using Tavro::ProjectTypeGlobal;

namespace {

const char s_catalog[] = R"({"format": 1, "id": "c", "name": "Sewers", "country": "D",
    "language": "DEU", "template": {"id": "t", "unit": "m", "views": [
        {"key": "detail_s", "columns": [{"key": "OBJ_Key"}, {"key": "OBJ_Size", "unit": "mm"},
            {"key": "SEC_Material"}, {"key": "INS_Date"}, {"key": "INS_Weather"},
            {"key": "INS_Cleaned"}, {"key": "OBJ_Key"}, {"key": "OBJ_Offset"},
            {"key": "INS_End"}]},
        {"key": "overview_s", "columns": [{"key": "OBJ_Key"}, {"key": "SEC_Material"}]}]}})";

const char s_form[] = R"({"format": 1,
    "codeLists": {
        "material": [{"code": "CO", "text": "Concrete"}, {"code": "VC", "text": "Clay"}],
        "weather": [{"code": "1", "text": "Dry"}, {"code": "2", "text": "Rain"}]},
    "columns": {
        "OBJ_Key": {"caption": "Section", "type": "TXT", "maximumLength": 4},
        "OBJ_Size": {"caption": "Diameter", "type": "INT", "minimum": 50, "maximum": 5000},
        "SEC_Material": {"caption": "Material", "type": "TXT", "list": "material",
                         "mandatory": true},
        "INS_Date": {"type": "DAT", "displayFormat": "dd.MM.yyyy"},
        "INS_Weather": {"type": "TXT", "list": "weather", "editableList": true},
        "INS_Cleaned": {"type": "BOL"},
        "OBJ_Offset": {"type": "DEC", "maximum": 5},
        "INS_End": {"type": "DAT"}}})";

/** Knows one word. */
class OneWord : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return qstrcmp(source, "Yes") == 0 ? QStringLiteral("Ja") : QString();
    }
};

} // namespace

/** What the form's screen shows, without the screen. */
class tst_InspectionForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theColumnsOfAViewAreItsFields();
    void aColumnThatTheFormDoesNotKnowTakesAnyText();
    void everyViewShowsItsColumns();
    void verdictsFollowTheText_data();
    void verdictsFollowTheText();
    void aListFieldTakesItsEntriesOnly();
    void aListMayBeEditable();
    void aTruthValueIsChosen();
    void mandatoryFieldsAreNamedOnceTheUserIsDone();
    void onlyWhatIsRightIsAccepted();
    void acceptedTextsAreRemembered();
    void marksFollowTheProject();
    void aViewWithoutObjectsKeepsItsMarks();
    void fieldsFollowTheLocale();
    void aCatalogThatCannotBeUsedIsExplained_data();
    void aCatalogThatCannotBeUsedIsExplained();
    void theFormThatIsOpenOutlivesABrokenOne();
    void theLastCatalogAskedForIsOpened();

private:
    void open(const QString &catalog, const QString &form)
    {
        m_form->open(catalog, form);
        QVERIFY(QTest::qWaitFor([&] { return !m_form->isOpening(); }, 30'000));
    }
    FormField *field(int index) const { return qobject_cast<FormField *>(m_form->fields()[index]); }
    QVector<bool> marks() const
    {
        QVector<bool> marks;
        for (int i = 0; i < m_form->fields().size(); ++i) {
            marks += field(i)->type()->mandatory();
        }
        return marks;
    }

    std::unique_ptr<TemporaryFolder> m_directory;
    QString m_catalogFile;
    QString m_formFile;
    std::unique_ptr<InspectionForm> m_form;
};

void tst_InspectionForm::init()
{
    m_directory = std::make_unique<TemporaryFolder>();
    m_catalogFile = m_directory->filePath(QStringLiteral("catalog.json"));
    m_formFile = m_directory->filePath(QStringLiteral("form.json"));
    makeFile(m_catalogFile, s_catalog);
    makeFile(m_formFile, s_form);
    m_form = std::make_unique<InspectionForm>();
    open(m_catalogFile, m_formFile);
    QCOMPARE(m_form->problem(), QString());
}

void tst_InspectionForm::cleanup()
{
    m_form.reset();
    m_directory.reset();
    ProjectTypeGlobal::instance().setProjectType(QString());
}

void tst_InspectionForm::theColumnsOfAViewAreItsFields()
{
    QCOMPARE(m_form->name(), QStringLiteral("Sewers"));
    QCOMPARE(m_form->views(),
             (QStringList{QStringLiteral("detail_s"), QStringLiteral("overview_s")}));
    QCOMPARE(m_form->fields().size(), 8); // one key is there twice
    QCOMPARE(field(0)->caption(), QStringLiteral("Section"));
    QCOMPARE(field(1)->caption(), QStringLiteral("Diameter"));
    QCOMPARE(field(1)->type()->unit(), QStringLiteral("mm"));
    QCOMPARE(
        field(1)->hint(),
        QStringLiteral("Minimum value larger or equal 50\nMaximum value smaller or equal 5000"));
    QCOMPARE(field(3)->caption(), QStringLiteral("INS_Date"));
    QCOMPARE(field(6)->hint(), QStringLiteral("Maximum value smaller or equal 5"));
}

void tst_InspectionForm::aColumnThatTheFormDoesNotKnowTakesAnyText()
{
    open(m_catalogFile, QString());
    QCOMPARE(m_form->problem(), QString());
    QCOMPARE(field(1)->caption(), QStringLiteral("OBJ_Size"));
    field(1)->setText(QStringLiteral("wide"));
    QCOMPARE(field(1)->verdict(), FormField::Valid);
    QCOMPARE(field(1)->hint(), QString());
}

void tst_InspectionForm::everyViewShowsItsColumns()
{
    field(0)->setText(QStringLiteral("S1"));
    QSignalSpy changed(m_form.get(), &InspectionForm::viewChanged);
    m_form->setView(1);
    QCOMPARE(changed.count(), 1);
    m_form->setView(1);
    m_form->setView(2);
    m_form->setView(-1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_form->fields().size(), 2);
    QCOMPARE(field(0)->text(), QStringLiteral("S1"));
    QCOMPARE(field(1)->caption(), QStringLiteral("Material"));
}

void tst_InspectionForm::verdictsFollowTheText_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typing");
    QTest::addColumn<QString>("finished");

    const auto row = [](const char *name, int column, const char *text, const char *typing,
                        const char *finished) {
        QTest::newRow(name) << column << QString::fromLatin1(text) << QString::fromLatin1(typing)
                            << QString::fromLatin1(finished);
    };
    row("a short text", 0, "S1", "Correct.", "Correct.");
    row("a text too long", 0, "S1234", "Not correct yet.", "Not correct.");
    row("a number", 1, "300", "Correct.", "Correct.");
    row("a number that is too small so far", 1, "3", "Not correct yet.", "Not correct.");
    row("a word for a number", 1, "wide", "Not correct yet.", "Not correct.");
    row("no number where none is needed", 1, "", "", "");
    row("a day", 3, "29.02.2024", "Correct.", "Correct.");
    row("a day that is none", 3, "29.02.2023", "Not correct yet.", "Not correct.");
    row("no day where none is needed", 3, "", "", "");
}

void tst_InspectionForm::verdictsFollowTheText()
{
    QFETCH(int, column);
    QFETCH(QString, text);

    FormField *const field = this->field(column);
    field->setText(QStringLiteral("."));
    QSignalSpy changed(field, &FormField::verdictChanged);
    field->setText(text);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!field->isFinished());
    QTEST(field->verdictText(), "typing");
    field->finish();
    QCOMPARE(changed.count(), 2);
    QVERIFY(field->isFinished());
    QTEST(field->verdictText(), "finished");
}

void tst_InspectionForm::aListFieldTakesItsEntriesOnly()
{
    FormField *const material = field(2);
    QCOMPARE(material->choice(), -1);
    QCOMPARE(material->verdict(), FormField::Intermediate);
    material->setChoice(1);
    QCOMPARE(material->text(), QStringLiteral("Clay"));
    QCOMPARE(material->value(), QStringLiteral("VC"));
    QCOMPARE(material->verdict(), FormField::Valid);
    material->setText(QStringLiteral("Concrete"));
    QCOMPARE(material->choice(), 0);
    material->setText(QStringLiteral("Steel"));
    QCOMPARE(material->choice(), -1);
    QCOMPARE(material->verdict(), FormField::Invalid);
}

void tst_InspectionForm::aListMayBeEditable()
{
    FormField *const weather = field(4);
    weather->setText(QStringLiteral("Rain"));
    QCOMPARE(weather->value(), QStringLiteral("2"));
    weather->setText(QStringLiteral("Hail"));
    QCOMPARE(weather->verdict(), FormField::Valid);
    QCOMPARE(weather->value(), QStringLiteral("Hail"));
}

void tst_InspectionForm::aTruthValueIsChosen()
{
    FormField *const cleaned = field(5);
    QCOMPARE(cleaned->type()->itemList().size(), 2);
    cleaned->setText(QStringLiteral("Yes"));
    QCOMPARE(cleaned->value(), QStringLiteral("1"));
    cleaned->setChoice(1);
    QCOMPARE(cleaned->text(), QStringLiteral("No"));
    QCOMPARE(cleaned->value(), QStringLiteral("0"));
}

void tst_InspectionForm::mandatoryFieldsAreNamedOnceTheUserIsDone()
{
    FormField *const material = field(2);
    QCOMPARE(material->verdictText(), QString());
    material->finish();
    QCOMPARE(material->verdictText(), QStringLiteral("Must be filled in."));
    QCOMPARE(m_form->mistakes(), 1);
    QCOMPARE(m_form->firstMistake(), 2);

    m_form->set3d(true);
    FormField *const section = field(0);
    section->setText(QStringLiteral("S"));
    section->setText(QString());
    QCOMPARE(section->verdict(), FormField::Intermediate);
    QCOMPARE(section->verdictText(), QStringLiteral("Not complete."));
    section->finish();
    QCOMPARE(section->verdict(), FormField::Invalid);
    QCOMPARE(section->verdictText(), QStringLiteral("Must be filled in."));
}

void tst_InspectionForm::onlyWhatIsRightIsAccepted()
{
    QSignalSpy accepted(m_form.get(), &InspectionForm::recordChanged);
    field(0)->setText(QStringLiteral("S1234"));
    field(1)->setText(QStringLiteral("3"));
    QCOMPARE(m_form->mistakes(), 0); // nobody has finished
    QCOMPARE(m_form->firstMistake(), -1);
    QVERIFY(!m_form->accept());
    QCOMPARE(m_form->mistakes(), 3);
    QCOMPARE(m_form->firstMistake(), 0);
    field(0)->setText(QStringLiteral("S123"));
    QCOMPARE(m_form->firstMistake(), 1);
    field(1)->setText(QStringLiteral("300"));
    QVERIFY(!m_form->accept());
    QCOMPARE(m_form->mistakes(), 1);
    QCOMPARE(m_form->firstMistake(), 2);
    QVERIFY(m_form->record().isEmpty());
    QCOMPARE(accepted.count(), 0);
    field(2)->setChoice(0);
    QVERIFY(m_form->accept());
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(m_form->mistakes(), 0);
    const QVariantList record = m_form->record();
    QCOMPARE(record.size(), 8);
    QCOMPARE(record.at(1).toMap(),
             (QVariantMap{{QStringLiteral("key"), QStringLiteral("OBJ_Size")},
                          {QStringLiteral("value"), QStringLiteral("300")}}));
    QCOMPARE(record.at(2).toMap().value(QStringLiteral("value")).toString(), QStringLiteral("CO"));
    QCOMPARE(record.at(3).toMap().value(QStringLiteral("value")).toString(), QString());
}

void tst_InspectionForm::acceptedTextsAreRemembered()
{
    field(2)->setChoice(0);
    for (const char *text : {"A", "B", "A"}) {
        field(0)->setText(QString::fromLatin1(text));
        QVERIFY(m_form->accept());
    }
    field(0)->setText(QString());
    QVERIFY(m_form->accept());
    QCOMPARE(field(0)->recent()->stringList(),
             (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(field(1)->recent()->rowCount(), 0);
}

void tst_InspectionForm::marksFollowTheProject()
{
    QCOMPARE(marks(), (QVector<bool>{false, false, true, false, false, false, false, false}));
    QSignalSpy changed(m_form.get(), &InspectionForm::is3dChanged);
    field(1)->setText(QStringLiteral("3"));
    field(1)->finish();
    m_form->set3d(true);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_form->is3d());
    QVERIFY(ProjectTypeGlobal::instance().is3d());
    QCOMPARE(marks(), (QVector<bool>{true, true, false, false, false, false, true, false}));
    QCOMPARE(field(1)->text(), QStringLiteral("3"));
    QCOMPARE(field(1)->verdict(), FormField::Invalid);
    QVERIFY(field(1)->hint().endsWith(QLatin1String("\nExpression can not be empty")));
    QVERIFY(!m_form->accept());
    QCOMPARE(field(0)->verdictText(), QStringLiteral("Must be filled in."));
    QCOMPARE(field(2)->verdict(), FormField::Valid);
    // by somebody else
    ProjectTypeGlobal::instance().setProjectType(QStringLiteral("PRO"));
    QCOMPARE(changed.count(), 2);
    QVERIFY(!m_form->is3d());
    QCOMPARE(marks(), (QVector<bool>{false, false, true, false, false, false, false, false}));
    QCOMPARE(field(0)->verdict(), FormField::Valid);
}

void tst_InspectionForm::aViewWithoutObjectsKeepsItsMarks()
{
    m_form->setView(1);
    m_form->set3d(true);
    QCOMPARE(marks(), (QVector<bool>{false, true}));
    m_form->setView(0);
    QCOMPARE(marks(), (QVector<bool>{true, true, false, false, false, false, true, false}));
}

void tst_InspectionForm::fieldsFollowTheLocale()
{
    const CurrentLocale german(QLocale(QStringLiteral("de_DE")));
    field(5)->setChoice(0);
    field(7)->setText(QStringLiteral("31.12.2026"));
    QCOMPARE(field(7)->verdict(), FormField::Valid);
    const auto *before = field(5)->type();
    QSignalSpy changed(field(5), &FormField::typeChanged);
    OneWord word;
    QVERIFY(QCoreApplication::installTranslator(&word));
    const CurrentLocale american(QLocale(QStringLiteral("en_US")));
    QCOMPARE(changed.count(), 1);
    QVERIFY(field(5)->type() != before);
    QCOMPARE(field(5)->choice(), 0);
    QCOMPARE(field(5)->text(), QStringLiteral("Ja"));
    QCOMPARE(field(7)->hint(), QStringLiteral("Date have to match format: M/d/yyyy"));
    QCOMPARE(field(7)->verdict(), FormField::Invalid);
}

void tst_InspectionForm::aCatalogThatCannotBeUsedIsExplained_data()
{
    QTest::addColumn<QString>("catalog");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("problem");

    const auto row = [](const char *name, const char *catalog, const char *form,
                        const char *problem) {
        QTest::newRow(name) << QString::fromLatin1(catalog) << QString::fromLatin1(form)
                            << QString::fromLatin1(problem);
    };
    row("no catalog", "missing.json", "form.json",
        "The catalog \"%1/missing.json\" cannot be read: there is no such file.");
    row("a catalog with a mistake", "broken.json", "form.json",
        "The catalog \"%1/broken.json\" cannot be used. Line 1, column 1: a catalog needs the key "
        "\"format\".");
    row("no form", "catalog.json", "missing.json",
        "The form \"%1/missing.json\" cannot be used: it cannot be read.");
    row("a form with a mistake", "catalog.json", "broken.json",
        "The form \"%1/broken.json\" cannot be used: the form has no key \"untis\".");
}

void tst_InspectionForm::aCatalogThatCannotBeUsedIsExplained()
{
    QFETCH(QString, catalog);
    QFETCH(QString, form);
    QFETCH(QString, problem);

    makeFile(m_directory->filePath(QStringLiteral("broken.json")), "{\n\"untis\": 1}");
    m_form = std::make_unique<InspectionForm>();
    open(m_directory->filePath(catalog), m_directory->filePath(form));
    QCOMPARE(m_form->problem(), problem.arg(m_directory->path()));
    QVERIFY(m_form->fields().isEmpty());
    QVERIFY(m_form->views().isEmpty());
    QVERIFY(!m_form->accept());
}

void tst_InspectionForm::theFormThatIsOpenOutlivesABrokenOne()
{
    field(0)->setText(QStringLiteral("S1"));
    QSignalSpy changed(m_form.get(), &InspectionForm::catalogChanged);
    open(m_directory->filePath(QStringLiteral("missing.json")), m_formFile);
    QVERIFY(!m_form->problem().isEmpty());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(field(0)->text(), QStringLiteral("S1"));
    open(m_catalogFile, m_formFile);
    QCOMPARE(m_form->problem(), QString());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(field(0)->text(), QString());
}

void tst_InspectionForm::theLastCatalogAskedForIsOpened()
{
    const QString other = m_directory->filePath(QStringLiteral("other.json"));
    makeFile(other, QByteArray(s_catalog).replace("Sewers", "Drains"));
    m_form->open(m_catalogFile, m_formFile);
    open(other, m_formFile);
    QCOMPARE(m_form->name(), QStringLiteral("Drains"));
}

QTEST_GUILESS_MAIN(tst_InspectionForm)

#include "tst_InspectionForm.moc"
