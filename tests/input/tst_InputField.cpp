// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/CInputType.h"
#include "shared/input/InputField.h"

#include <QTest>

#include <functional>
#include <memory>
#include <type_traits>

using Tavro::Shared::CInputType;
using Tavro::Shared::InputField;
using Tavro::Shared::ListItem;

static_assert(std::has_virtual_destructor_v<InputField>);
static_assert(std::is_same_v<std::underlying_type_t<InputField::DataType>, int>);
static_assert(std::is_same_v<decltype(std::declval<const InputField &>().caption()), QString>);
static_assert(std::is_same_v<decltype(std::declval<const InputField &>().itemList()),
                             const QList<ListItem> &>);

namespace {

struct TextMember
{
    const char *name;
    QString (InputField::*read)() const;
    void (InputField::*write)(const QString &);
};

const TextMember s_texts[] = {
    {"caption", &InputField::caption, &InputField::setCaption},
    {"boundColumn", &InputField::boundColumn, &InputField::setBoundColumn},
    {"unit", &InputField::unit, &InputField::setUnit},
    {"defaultValue", &InputField::defaultValue, &InputField::setDefaultValue},
    {"minimumValue", &InputField::minimumValue, &InputField::setMinimumValue},
    {"maximumValue", &InputField::maximumValue, &InputField::setMaximumValue},
    {"inputFormat", &InputField::inputFormat, &InputField::setInputFormat},
    {"displayFormat", &InputField::displayFormat, &InputField::setDisplayFormat},
};

struct FlagMember
{
    const char *name;
    bool (InputField::*read)() const;
    void (InputField::*write)(bool);
};

const FlagMember s_flags[] = {
    {"isMandatory", &InputField::isMandatory, &InputField::setIsMandatory},
    {"isReadonly", &InputField::isReadonly, &InputField::setIsReadonly},
    {"allowNoListItems", &InputField::allowNoListItems, &InputField::setAllowNoListItems},
    {"isVisible", &InputField::isVisible, &InputField::setIsVisible},
};

struct NumberMember
{
    const char *name;
    int (InputField::*read)() const;
    void (InputField::*write)(int);
};

const NumberMember s_numbers[] = {
    {"maximumTextLength", &InputField::maximumTextLength, &InputField::setMaximumTextLength},
    {"precission", &InputField::precission, &InputField::setPrecission},
};

/** A field with a control, as an owner builds it. */
class ControlField : public InputField
{
public:
    explicit ControlField(
        int controlType, std::function<void()> atEnd = [] {})
        : m_atEnd(std::move(atEnd))
    {
        m_controlType = controlType;
    }
    ~ControlField() override { m_atEnd(); }

private:
    std::function<void()> m_atEnd;
};

QList<ListItem> oneItem()
{
    return {ListItem(1, QStringLiteral("Crack"), QStringLiteral("BAB"))};
}

} // namespace

class tst_InputField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAndInvisibleAtFirst();
    void everyTextIsStoredForItself();
    void everyFlagIsStoredForItself();
    void everyNumberIsStoredForItself();
    void dataTypesAreThoseOfTheDescriptor();
    void dataTypeKeepsAnyNumber();
    void listIsTakenOver();
    void listIsShared();
    void listThatIsSharedAlreadyStaysShared();
    void controlTypeIsSetBySubclasses();
    void isDeletedThroughItsBase();
    void isCopied();
};

void tst_InputField::isEmptyAndInvisibleAtFirst()
{
    const InputField field;
    for (const TextMember &text : s_texts) {
        QVERIFY2((field.*text.read)().isEmpty(), text.name);
    }
    for (const FlagMember &flag : s_flags) {
        QVERIFY2(!(field.*flag.read)(), flag.name);
    }
    for (const NumberMember &number : s_numbers) {
        QVERIFY2((field.*number.read)() == 0, number.name);
    }
    QCOMPARE(field.dataType(), InputField::DataTypeNone);
    QCOMPARE(field.controlType(), 0);
    QVERIFY(!field.hasList());
    QVERIFY(field.itemList().isEmpty());
}

void tst_InputField::everyTextIsStoredForItself()
{
    for (const TextMember &written : s_texts) {
        InputField field;
        const QString text = QStringLiteral("  as it is\n");
        (field.*written.write)(text);
        for (const TextMember &read : s_texts) {
            QCOMPARE((field.*read.read)(), &read == &written ? text : QString());
        }
    }
}

void tst_InputField::everyFlagIsStoredForItself()
{
    for (const FlagMember &written : s_flags) {
        InputField field;
        (field.*written.write)(true);
        for (const FlagMember &read : s_flags) {
            QCOMPARE((field.*read.read)(), &read == &written);
        }
        (field.*written.write)(false);
        QVERIFY2(!(field.*written.read)(), written.name);
    }
}

void tst_InputField::everyNumberIsStoredForItself()
{
    for (const NumberMember &written : s_numbers) {
        for (const int number : {1, -1, 2147483647}) {
            InputField field;
            (field.*written.write)(number);
            for (const NumberMember &read : s_numbers) {
                QCOMPARE((field.*read.read)(), &read == &written ? number : 0);
            }
        }
    }
}

void tst_InputField::dataTypesAreThoseOfTheDescriptor()
{
    QCOMPARE(int(InputField::DataTypeNone), int(CInputType::InputTypeInvalid));
    QCOMPARE(int(InputField::DataTypeText), int(CInputType::InputTypeText));
    QCOMPARE(int(InputField::DataTypeInteger), int(CInputType::InputTypeInteger));
    QCOMPARE(int(InputField::DataTypeDecimal), int(CInputType::InputTypeDecimal));
    QCOMPARE(int(InputField::DataTypeBoolean), int(CInputType::InputTypeBoolean));
    QCOMPARE(int(InputField::DataTypeDate), int(CInputType::InputTypeDate));
}

void tst_InputField::dataTypeKeepsAnyNumber()
{
    InputField field;
    for (int type : {0, 1, 2, 3, 4, 5, 9, -1, 2147483647}) {
        field.setDataType(static_cast<InputField::DataType>(type));
        QCOMPARE(static_cast<int>(field.dataType()), type);
    }
}

void tst_InputField::listIsTakenOver()
{
    InputField field;
    field.setItemList(oneItem());
    QVERIFY(field.hasList());
    QCOMPARE(field.itemList().size(), 1);
    QCOMPARE(field.itemList().first().text(), QStringLiteral("Crack"));
    field.setItemList({});
    QVERIFY(!field.hasList());
    QVERIFY(field.itemList().isEmpty());
}

void tst_InputField::listIsShared()
{
    InputField field;
    QList<ListItem> list = oneItem();
    field.setItemList(list);
    QVERIFY(field.itemList().isSharedWith(list));
    list.first().setText(QStringLiteral("Break"));
    QVERIFY(!field.itemList().isSharedWith(list));
    QCOMPARE(field.itemList().first().text(), QStringLiteral("Crack"));
}

void tst_InputField::listThatIsSharedAlreadyStaysShared()
{
    InputField field;
    const QList<ListItem> list = oneItem();
    field.setItemList(list);
    const ListItem *item = &field.itemList().first();
    field.setItemList(list);
    QCOMPARE(&field.itemList().first(), item);
    field.setItemList(field.itemList());
    QCOMPARE(&field.itemList().first(), item);
    QVERIFY(field.itemList().isSharedWith(list));
}

void tst_InputField::controlTypeIsSetBySubclasses()
{
    const ControlField field(CInputType::ComboBox);
    QCOMPARE(field.controlType(), 3);
}

void tst_InputField::isDeletedThroughItsBase()
{
    bool ended = false;
    {
        const std::unique_ptr<InputField> field =
            std::make_unique<ControlField>(1, [&ended] { ended = true; });
        QVERIFY(!ended);
    }
    QVERIFY(ended);
}

void tst_InputField::isCopied()
{
    ControlField field(CInputType::ComboBox);
    field.setCaption(QStringLiteral("Material"));
    field.setIsVisible(true);
    field.setPrecission(2);
    field.setDataType(InputField::DataTypeDecimal);
    field.setItemList(oneItem());
    InputField copy(field);
    QCOMPARE(copy.caption(), QStringLiteral("Material"));
    QVERIFY(copy.isVisible());
    QCOMPARE(copy.precission(), 2);
    QCOMPARE(copy.dataType(), InputField::DataTypeDecimal);
    QCOMPARE(copy.controlType(), 3);
    QVERIFY(copy.hasList());
    copy.setCaption(QStringLiteral("Shape"));
    QCOMPARE(field.caption(), QStringLiteral("Material"));
    InputField assigned;
    assigned = copy;
    QCOMPARE(assigned.caption(), QStringLiteral("Shape"));
    QCOMPARE(assigned.controlType(), 3);
}

QTEST_APPLESS_MAIN(tst_InputField)

#include "tst_InputField.moc"
