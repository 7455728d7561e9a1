#include "shared/input/CInputType.h"
#include "tests/input/Declared.h"
#include "tests/input/VirtualSlot.h"

#include <QSignalSpy>
#include <QTest>

using namespace Test;
using Tavro::Shared::CInputType;

namespace {

/** A descriptor whose every answer can be told from every other. */
class SomeInputType : public CInputType
{
public:
    using CInputType::CInputType;

    QString caption() const override { return QStringLiteral("a caption"); }
    QString boundColumn() const override { return QStringLiteral("a column"); }
    QString unit() const override { return QStringLiteral("a unit"); }
    QString displayFormat() const override { return QStringLiteral("a format"); }
    bool mandatory() const override { return true; }
    bool hasList() const override { return true; }
    bool editableList() const override { return true; }
    InputType inputType() const override { return InputTypeDecimal; }
    int maximumTextLength() const override { return 12; }
    int controlType() const override { return ComboText; }
    QVariant minimumValue() const override { return 0.5; }
    QVariant maximumValue() const override { return QStringLiteral("7"); }
    QVariantList itemList() const override { return {1, 2}; }
    QString textFromListIndex(int index) const override
    {
        return QStringLiteral("text %1").arg(index);
    }
    QVariant valueFromListIndex(int index) const override { return index * 10; }
    int listIndexFromValue(const QVariant &value) const override { return value.toInt() / 10; }
};

} // namespace

class tst_CInputType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesToHideAreStored();
    void propertiesAskTheDescriptor();
    void invokablesAskTheDescriptor();
    void listChangesAreAnnouncedByTheDescriptor();
    void belongsToItsParent();
    void metaObjectHasItsOrder();
    void enumerationsHaveTheirKeys();
    void virtualFunctionsStandInTheirOrder();
};

void tst_CInputType::valuesToHideAreStored()
{
    SomeInputType type;
    const QSignalSpy itemListChanged(&type, &CInputType::itemListChanged);
    QCOMPARE(type.valuesToHide(), QString());
    type.setValuesToHide(QStringLiteral("A;B"));
    QCOMPARE(type.valuesToHide(), QStringLiteral("A;B"));
    type.setValuesToHide(QString());
    QCOMPARE(type.valuesToHide(), QString());
    QCOMPARE(itemListChanged.count(), 0);
}

void tst_CInputType::propertiesAskTheDescriptor()
{
    const SomeInputType type;
    QCOMPARE(type.property("caption"), QVariant(QStringLiteral("a caption")));
    QCOMPARE(type.property("boundColumn"), QVariant(QStringLiteral("a column")));
    QCOMPARE(type.property("unit"), QVariant(QStringLiteral("a unit")));
    QCOMPARE(type.property("mandatory"), QVariant(true));
    QCOMPARE(type.property("hasList"), QVariant(true));
    QCOMPARE(type.property("editableList"), QVariant(true));
    QCOMPARE(type.property("inputType").toInt(), 3);
    QCOMPARE(type.property("maximumTextLength"), QVariant(12));
    QCOMPARE(type.property("minimumValue"), QVariant(0.5));
    QCOMPARE(type.property("maximumValue"), QVariant(QStringLiteral("7")));
    QCOMPARE(type.property("itemList"), QVariant(QVariantList{1, 2}));
    QCOMPARE(type.property("displayFormat"), QVariant(QStringLiteral("a format")));
    QCOMPARE(type.property("controlType"), QVariant(9));
}

void tst_CInputType::invokablesAskTheDescriptor()
{
    SomeInputType type;
    QString text;
    QVERIFY(QMetaObject::invokeMethod(&type, "textFromListIndex", Q_RETURN_ARG(QString, text),
                                      Q_ARG(int, 4)));
    QCOMPARE(text, QStringLiteral("text 4"));
    QVariant value;
    QVERIFY(QMetaObject::invokeMethod(&type, "valueFromListIndex", Q_RETURN_ARG(QVariant, value),
                                      Q_ARG(int, 4)));
    QCOMPARE(value, QVariant(40));
    int index = 0;
    QVERIFY(QMetaObject::invokeMethod(&type, "listIndexFromValue", Q_RETURN_ARG(int, index),
                                      Q_ARG(QVariant, 40)));
    QCOMPARE(index, 4);
    type.setValuesToHide(QStringLiteral("A"));
    QVERIFY(QMetaObject::invokeMethod(&type, "valuesToHide", Q_RETURN_ARG(QString, text)));
    QCOMPARE(text, QStringLiteral("A"));
}

void tst_CInputType::listChangesAreAnnouncedByTheDescriptor()
{
    SomeInputType type;
    const QSignalSpy itemListChanged(&type, &CInputType::itemListChanged);
    Q_EMIT type.itemListChanged();
    QCOMPARE(itemListChanged.count(), 1);
}

void tst_CInputType::belongsToItsParent()
{
    QObject parent;
    const CInputType *type = new SomeInputType(&parent);
    QCOMPARE(parent.children().value(0), type);
    QCOMPARE(SomeInputType().parent(), nullptr);
}

void tst_CInputType::metaObjectHasItsOrder()
{
    const QMetaObject &meta = CInputType::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::CInputType");
    QCOMPARE(meta.superClass()->className(), "QObject");
    const QStringList properties = {
        QStringLiteral("QString caption read constant"),
        QStringLiteral("QString boundColumn read constant"),
        QStringLiteral("QString unit read constant"),
        QStringLiteral("bool mandatory read constant"),
        QStringLiteral("bool hasList read constant"),
        QStringLiteral("bool editableList read constant"),
        QStringLiteral("InputType inputType read constant"),
        QStringLiteral("int maximumTextLength read constant"),
        QStringLiteral("QVariant minimumValue read constant"),
        QStringLiteral("QVariant maximumValue read constant"),
        QStringLiteral("QVariantList itemList read notify itemListChanged()"),
        QStringLiteral("QString displayFormat read constant"),
        QStringLiteral("int controlType read constant"),
    };
    QStringList declared = declaredProperties(meta);
    declared.replaceInStrings(QStringLiteral("Tavro::Shared::CInputType::"), QString());
    QCOMPARE(declared, properties);
    const QStringList methods = {
        QStringLiteral("signal void itemListChanged()"),
        QStringLiteral("invokable QString textFromListIndex(int index)"),
        QStringLiteral("invokable QVariant valueFromListIndex(int index)"),
        QStringLiteral("invokable int listIndexFromValue(QVariant value)"),
        QStringLiteral("invokable QString valuesToHide()"),
    };
    QCOMPARE(declaredMethods(meta), methods);
}

void tst_CInputType::enumerationsHaveTheirKeys()
{
    const QMetaObject &meta = CInputType::staticMetaObject;
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 2);
    const QStringList inputTypes = {
        QStringLiteral("InputTypeInvalid 0"),     QStringLiteral("InputTypeText 1"),
        QStringLiteral("InputTypeInteger 2"),     QStringLiteral("InputTypeDecimal 3"),
        QStringLiteral("InputTypeBoolean 4"),     QStringLiteral("InputTypeDate 5"),
        QStringLiteral("InputTypeTime 6"),        QStringLiteral("InputTypeAutocomplete 7"),
        QStringLiteral("InputTypeParticipant 8"), QStringLiteral("InputTypeTextModal 9"),
    };
    QCOMPARE(declaredKeys(meta, "InputType"), inputTypes);
    const QStringList controls = {
        QStringLiteral("Unknown 0"),         QStringLiteral("TextBox 1"),
        QStringLiteral("MaskedTextBox 2"),   QStringLiteral("ComboBox 3"),
        QStringLiteral("NumericUpDn 4"),     QStringLiteral("DatePicker 5"),
        QStringLiteral("TimePicker 6"),      QStringLiteral("CheckBox 7"),
        QStringLiteral("TextButton 8"),      QStringLiteral("ComboText 9"),
        QStringLiteral("BitMask 10"),        QStringLiteral("DirectoryPicker 11"),
        QStringLiteral("FilePicker 12"),     QStringLiteral("ColorPicker 13"),
        QStringLiteral("FontPicker 14"),     QStringLiteral("SectionTitle 15"),
        QStringLiteral("PictureBox 16"),     QStringLiteral("CommandButton 17"),
        QStringLiteral("MultipleChoice 18"), QStringLiteral("MultiLineTextBox 19"),
    };
    QCOMPARE(declaredKeys(meta, "BaseInputType"), controls);
}

void tst_CInputType::virtualFunctionsStandInTheirOrder()
{
    QCOMPARE(virtualSlot(&CInputType::caption), 1);
    QCOMPARE(virtualSlot(&CInputType::boundColumn), 2);
    QCOMPARE(virtualSlot(&CInputType::unit), 3);
    QCOMPARE(virtualSlot(&CInputType::displayFormat), 4);
    QCOMPARE(virtualSlot(&CInputType::mandatory), 5);
    QCOMPARE(virtualSlot(&CInputType::hasList), 6);
    QCOMPARE(virtualSlot(&CInputType::editableList), 7);
    QCOMPARE(virtualSlot(&CInputType::inputType), 8);
    QCOMPARE(virtualSlot(&CInputType::maximumTextLength), 9);
    QCOMPARE(virtualSlot(&CInputType::controlType), 10);
    QCOMPARE(virtualSlot(&CInputType::minimumValue), 11);
    QCOMPARE(virtualSlot(&CInputType::maximumValue), 12);
    QCOMPARE(virtualSlot(&CInputType::itemList), 13);
    QCOMPARE(virtualSlot(&CInputType::textFromListIndex), 14);
    QCOMPARE(virtualSlot(&CInputType::valueFromListIndex), 15);
    QCOMPARE(virtualSlot(&CInputType::listIndexFromValue), 16);
    QCOMPARE(virtualSlot(&CInputType::valuesToHide), 17);
    QCOMPARE(virtualSlot(&CInputType::setValuesToHide), 18);
}

QTEST_APPLESS_MAIN(tst_CInputType)

#include "tst_CInputType.moc"
