// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogFiles.h"
#include "fieldhost/forms/ColumnInputType.h"
#include "fieldhost/forms/FieldRules.h"
#include "host/CCatalogTemplate.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "shared/input/TextValidator.h"

#include <QSignalSpy>
#include <QTest>

using Tavro::FieldHost::addFieldRules;
using Tavro::FieldHost::ColumnForm;
using Tavro::FieldHost::ColumnInputType;
using Tavro::Shared::CInputType;
using Tavro::Shared::CodeListItem;
using Tavro::Shared::TextValidator;

namespace {

class Column : public Tavro::Templates::CColumnDefinition
{
public:
    QString key() const override { return QStringLiteral("SEC_Height"); }
    QString unit() const override { return QStringLiteral("mm"); }
};

QList<CodeListItem> materials()
{
    return {CodeListItem(QStringLiteral("CO"), QStringLiteral("Concrete"), QString()),
            CodeListItem(QStringLiteral("3"), QStringLiteral("Clay"), QString()),
            CodeListItem(QString(), QStringLiteral("Not known"), QString())};
}

ColumnForm formOf(const char *dataType)
{
    ColumnForm form;
    form.dataType = QLatin1String(dataType);
    return form;
}

bool passes(const ColumnForm &form, QString text)
{
    TextValidator rules;
    addFieldRules(rules, ColumnInputType(Column(), form));
    return rules.validate(text, true);
}

} // namespace

/** The descriptor of a catalog's column, and the rules that follow from it. */
class tst_ColumnInputType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keyAndUnitAreThoseOfTheColumn();
    void theRestIsThatOfTheForm();
    void anEmptyFormSaysNothing();
    void dataTypeIsThatOfTheCode_data();
    void dataTypeIsThatOfTheCode();
    void controlSuitsTheData_data();
    void controlSuitsTheData();
    void listIsShownInItsOrder();
    void listEntriesAreFound();
    void outsideOfTheListThereIsNothing_data();
    void outsideOfTheListThereIsNothing();
    void listCanBeReplaced();
    void columnsOfACatalogAreDescribed();
    void rulesFollowFromTheColumn();
    void numberWithoutMinimumTakesZeroAndLess();
    void chosenValuesNeedNoRules();
};

void tst_ColumnInputType::keyAndUnitAreThoseOfTheColumn()
{
    QObject parent;
    const auto *type = new ColumnInputType(Column(), ColumnForm(), &parent);
    QCOMPARE(type->boundColumn(), QStringLiteral("SEC_Height"));
    QCOMPARE(type->unit(), QStringLiteral("mm"));
    QCOMPARE(type->parent(), &parent);
}

void tst_ColumnInputType::theRestIsThatOfTheForm()
{
    ColumnForm form = formOf("DEC");
    form.caption = QStringLiteral("Height");
    form.isMandatory = true;
    form.maximumTextLength = 7;
    form.minimumValue = 50;
    form.maximumValue = 5000.5;
    form.displayFormat = QStringLiteral("0.0");
    form.control = CInputType::MaskedTextBox;
    const ColumnInputType type(Column(), form);
    QCOMPARE(type.caption(), QStringLiteral("Height"));
    QVERIFY(type.mandatory());
    QCOMPARE(type.maximumTextLength(), 7);
    QCOMPARE(type.minimumValue(), QVariant(50));
    QCOMPARE(type.maximumValue(), QVariant(5000.5));
    QCOMPARE(type.displayFormat(), QStringLiteral("0.0"));
    QCOMPARE(type.controlType(), int(CInputType::MaskedTextBox));
}

void tst_ColumnInputType::anEmptyFormSaysNothing()
{
    const ColumnInputType type{Column(), ColumnForm()};
    QCOMPARE(type.caption(), QString());
    QVERIFY(!type.mandatory());
    QVERIFY(!type.hasList());
    QVERIFY(!type.editableList());
    QCOMPARE(type.inputType(), CInputType::InputTypeInvalid);
    QCOMPARE(type.maximumTextLength(), 0);
    QVERIFY(!type.minimumValue().isValid());
    QVERIFY(!type.maximumValue().isValid());
    QVERIFY(type.itemList().isEmpty());
    QCOMPARE(type.displayFormat(), QString());
    QCOMPARE(type.controlType(), int(CInputType::Unknown));
}

void tst_ColumnInputType::dataTypeIsThatOfTheCode_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<int>("type");

    QTest::newRow("text") << QByteArray("TXT") << 1;
    QTest::newRow("whole number") << QByteArray("INT") << 2;
    QTest::newRow("number with decimals") << QByteArray("DEC") << 3;
    QTest::newRow("yes or no") << QByteArray("BOL") << 4;
    QTest::newRow("date") << QByteArray("DAT") << 5;
    QTest::newRow("unknown") << QByteArray("XYZ") << 0;
    QTest::newRow("none") << QByteArray("") << 0;
}

void tst_ColumnInputType::dataTypeIsThatOfTheCode()
{
    QFETCH(QByteArray, code);
    const ColumnInputType type(Column(), formOf(code.constData()));
    QTEST(type.property("inputType").toInt(), "type");
}

void tst_ColumnInputType::controlSuitsTheData_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<bool>("hasList");
    QTest::addColumn<bool>("isEditable");
    QTest::addColumn<int>("control");

    QTest::newRow("text") << QByteArray("TXT") << false << false << int(CInputType::TextBox);
    QTest::newRow("whole number") << QByteArray("INT") << false << false
                                  << int(CInputType::NumericUpDn);
    QTest::newRow("decimals") << QByteArray("DEC") << false << false
                              << int(CInputType::NumericUpDn);
    QTest::newRow("yes or no") << QByteArray("BOL") << false << false << int(CInputType::CheckBox);
    QTest::newRow("date") << QByteArray("DAT") << false << false << int(CInputType::DatePicker);
    QTest::newRow("unknown") << QByteArray("") << false << false << int(CInputType::Unknown);
    QTest::newRow("list") << QByteArray("INT") << true << false << int(CInputType::ComboBox);
    QTest::newRow("editable list")
        << QByteArray("TXT") << true << true << int(CInputType::ComboText);
    QTest::newRow("editable, but no list")
        << QByteArray("TXT") << false << true << int(CInputType::TextBox);
}

void tst_ColumnInputType::controlSuitsTheData()
{
    QFETCH(QByteArray, code);
    QFETCH(bool, hasList);
    QFETCH(bool, isEditable);

    ColumnForm form = formOf(code.constData());
    form.isListEditable = isEditable;
    if (hasList) {
        form.codeList = materials();
    }
    const ColumnInputType type(Column(), form);
    QTEST(type.property("controlType").toInt(), "control");
    QCOMPARE(type.hasList(), hasList);
    QCOMPARE(type.editableList(), hasList && isEditable);
}

void tst_ColumnInputType::listIsShownInItsOrder()
{
    ColumnForm form = formOf("TXT");
    form.codeList = materials();
    const ColumnInputType type(Column(), form);
    QStringList shown;
    const QVariantList items = type.itemList();
    for (const QVariant &item : items) {
        const QVariantMap entry = item.toMap();
        shown += entry.value(QStringLiteral("text")).toString() + QLatin1Char('=')
            + entry.value(QStringLiteral("value")).toString();
    }
    const QStringList expected = {QStringLiteral("Concrete=CO"), QStringLiteral("Clay=3"),
                                  QStringLiteral("Not known=")};
    QCOMPARE(shown, expected);
}

void tst_ColumnInputType::listEntriesAreFound()
{
    ColumnForm form = formOf("TXT");
    form.codeList = materials();
    const ColumnInputType type(Column(), form);
    QCOMPARE(type.textFromListIndex(0), QStringLiteral("Concrete"));
    QCOMPARE(type.valueFromListIndex(0), QVariant(QStringLiteral("CO")));
    QCOMPARE(type.listIndexFromValue(QStringLiteral("CO")), 0);
    QCOMPARE(type.textFromListIndex(1), QStringLiteral("Clay"));
    QCOMPARE(type.listIndexFromValue(3), 1); // as the database has it
    QCOMPARE(type.listIndexFromValue(3.0), 1); // as QML has it
    QCOMPARE(type.valueFromListIndex(2), QVariant(QString()));
    QCOMPARE(type.listIndexFromValue(QString()), 2);
}

void tst_ColumnInputType::outsideOfTheListThereIsNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("behind the last") << 3;
    QTest::newRow("negative") << -1;
    QTest::newRow("highest number") << 2147483647;
    QTest::newRow("lowest number") << -2147483647 - 1;
}

void tst_ColumnInputType::outsideOfTheListThereIsNothing()
{
    QFETCH(int, index);

    ColumnForm form = formOf("TXT");
    form.codeList = materials();
    const ColumnInputType type(Column(), form);
    QCOMPARE(type.textFromListIndex(index), QString());
    QVERIFY(!type.valueFromListIndex(index).isValid());
    QCOMPARE(type.listIndexFromValue(QStringLiteral("co")), -1);
    QCOMPARE(type.listIndexFromValue(QVariant()), -1);
}

void tst_ColumnInputType::listCanBeReplaced()
{
    ColumnInputType type(Column(), formOf("TXT"));
    const QSignalSpy itemListChanged(&type, &CInputType::itemListChanged);
    type.setCodeList(materials());
    QCOMPARE(itemListChanged.count(), 1);
    QVERIFY(type.hasList());
    QCOMPARE(type.itemList().size(), 3);
    QCOMPARE(type.textFromListIndex(1), QStringLiteral("Clay"));
}

void tst_ColumnInputType::columnsOfACatalogAreDescribed()
{
    using namespace Tavro::FieldHost;
    CatalogFiles catalogs;
    CatalogError error;
    const CatalogDescriptor *catalog =
        catalogs.load(QStringLiteral(OVO_SAMPLE_CATALOGS "/metric.json"), error);
    QVERIFY2(catalog, qPrintable(error.cause));
    const auto catalogTemplate = catalogs.getTemplateFromCache(catalog->templateId);
    QVERIFY(catalogTemplate);
    const auto *view = catalogTemplate->programView(0);
    QStringList described;
    for (int i = 0; i < view->columnCount(); ++i) {
        const ColumnInputType type(*view->column(i), ColumnForm());
        QCOMPARE(type.boundColumn(), view->column(i)->key());
        described += type.boundColumn() + QLatin1Char(' ') + type.unit();
    }
    QVERIFY(described.contains(QStringLiteral("SEC_Height mm")));
}

void tst_ColumnInputType::rulesFollowFromTheColumn()
{
    ColumnForm whole = formOf("INT");
    whole.minimumValue = 50;
    whole.maximumValue = QStringLiteral("5000");
    QVERIFY(passes(whole, QStringLiteral("50")));
    QVERIFY(!passes(whole, QStringLiteral("49")));
    QVERIFY(!passes(whole, QStringLiteral("5001")));

    ColumnForm decimal = formOf("DEC");
    decimal.minimumValue = 0.5;
    QVERIFY(passes(decimal, QStringLiteral("0.5")));
    QVERIFY(!passes(decimal, QStringLiteral("0.4")));

    ColumnForm text = formOf("TXT");
    text.maximumTextLength = 3;
    QVERIFY(passes(text, QString()));
    QVERIFY(passes(text, QStringLiteral("abc")));
    QVERIFY(!passes(text, QStringLiteral("abcd")));
    text.isMandatory = true;
    QVERIFY(!passes(text, QString()));

    ColumnForm date = formOf("DAT");
    date.displayFormat = QStringLiteral("dd.MM.yyyy");
    QVERIFY(passes(date, QStringLiteral("29.02.2024")));
    QVERIFY(!passes(date, QStringLiteral("30.02.2024")));
}

void tst_ColumnInputType::numberWithoutMinimumTakesZeroAndLess()
{
    QVERIFY(passes(formOf("DEC"), QStringLiteral("0")));
    QVERIFY(passes(formOf("DEC"), QStringLiteral("-1.5")));
    QVERIFY(passes(formOf("INT"), QStringLiteral("-1")));
}

void tst_ColumnInputType::chosenValuesNeedNoRules()
{
    ColumnForm form = formOf("INT");
    form.isMandatory = true;
    form.codeList = materials();
    TextValidator chosen;
    addFieldRules(chosen, ColumnInputType(Column(), form));
    QVERIFY(!chosen.hasHint());
    form.isListEditable = true;
    TextValidator typed;
    addFieldRules(typed, ColumnInputType(Column(), form));
    QCOMPARE(typed.validatorTypes().size(), 2);
}

QTEST_GUILESS_MAIN(tst_ColumnInputType)

#include "tst_ColumnInputType.moc"
