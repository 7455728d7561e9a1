// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/CInputType.h"

#include <QMetaEnum>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <cstring>
#include <type_traits>

using Tavro::Shared::CInputType;

namespace {

/** A column with a list of two entries; each answer is one of a kind. */
class ListColumn : public CInputType
{
public:
    using CInputType::CInputType;

    QString caption() const override { return QStringLiteral("Material"); }
    QString boundColumn() const override { return QStringLiteral("pipe_material"); }
    QString unit() const override { return QStringLiteral("inch"); }
    QString displayFormat() const override { return QStringLiteral("0.00"); }
    bool mandatory() const override { return m_flag == 0; }
    bool hasList() const override { return m_flag == 1; }
    bool editableList() const override { return m_flag == 2; }
    InputType inputType() const override { return InputTypeAutocomplete; }
    int maximumTextLength() const override { return 42; }
    int controlType() const override { return ComboText; }
    QVariant minimumValue() const override { return -1.5; }
    QVariant maximumValue() const override { return 250; }
    QVariantList itemList() const override
    {
        return {QStringLiteral("concrete"), QStringLiteral("steel")};
    }
    QString textFromListIndex(int index) const override
    {
        return itemList().value(index).toString();
    }
    QVariant valueFromListIndex(int index) const override { return 100 + index; }
    int listIndexFromValue(const QVariant &value) const override { return value.toInt() - 100; }

    /** Which of the three flags is true: mandatory, hasList, editableList. */
    void setTrueFlag(int flag) { m_flag = flag; }

private:
    int m_flag = 0;
};

struct Key
{
    const char *name;
    int value;
};

struct Property
{
    const char *name;
    const char *type;
};

const QVector<Key> &inputTypes()
{
    static const QVector<Key> table = {
        {"InputTypeInvalid", 0},   {"InputTypeText", 1},         {"InputTypeInteger", 2},
        {"InputTypeDecimal", 3},   {"InputTypeBoolean", 4},      {"InputTypeDate", 5},
        {"InputTypeTime", 6},      {"InputTypeAutocomplete", 7}, {"InputTypeParticipant", 8},
        {"InputTypeTextModal", 9},
    };
    return table;
}

const QVector<Key> &baseInputTypes()
{
    static const QVector<Key> table = {
        {"Unknown", 0},     {"TextBox", 1},        {"MaskedTextBox", 2},   {"ComboBox", 3},
        {"NumericUpDn", 4}, {"DatePicker", 5},     {"TimePicker", 6},      {"CheckBox", 7},
        {"TextButton", 8},  {"ComboText", 9},      {"BitMask", 10},        {"DirectoryPicker", 11},
        {"FilePicker", 12}, {"ColorPicker", 13},   {"FontPicker", 14},     {"SectionTitle", 15},
        {"PictureBox", 16}, {"CommandButton", 17}, {"MultipleChoice", 18}, {"MultiLineTextBox", 19},
    };
    return table;
}

// the place of a virtual function in the table, counted in bytes from an origin of the ABI's own
template<typename Function> std::ptrdiff_t slotOf(Function function)
{
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &function, sizeof place);
    return place;
}

struct LastOfQObject : QObject
{
    static std::ptrdiff_t slot() { return slotOf(&LastOfQObject::disconnectNotify); }
};

/** Evaluates @p expression with "column" being @p column. */
QVariant evaluated(CInputType &column, const char *expression)
{
    QQmlEngine engine;
    QQmlEngine::setObjectOwnership(&column, QQmlEngine::CppOwnership);
    engine.rootContext()->setContextProperty(QStringLiteral("column"), &column);
    QQmlComponent component(&engine);
    component.setData(QByteArrayLiteral("import QtQml 2.15\nQtObject { property var value: ")
                          + expression + " }",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    return object ? object->property("value") : QVariant(component.errorString());
}

} // namespace

class tst_CInputType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAnAbstractObject();
    void enumerationsStandInOrder();
    void propertiesStandInOrder();
    void methodsStandInOrder();
    void virtualFunctionsStandInOrder();
    void propertiesAskTheVirtualFunctions();
    void flagsAreNotMixedUp_data();
    void flagsAreNotMixedUp();
    void invokableFunctionsAskTheVirtualFunctions();
    void itemListAnnouncesItsChange();
    void valuesToHideAreStored();
    void valuesToHideCannotBeSetByName();
    void qmlReadsEveryProperty_data();
    void qmlReadsEveryProperty();
    void qmlFollowsTheList();
    void belongsToItsParent();
};

void tst_CInputType::isAnAbstractObject()
{
    static_assert(std::is_abstract_v<CInputType>);
    static_assert(std::has_virtual_destructor_v<CInputType>);
    QCOMPARE(CInputType::staticMetaObject.className(), "Tavro::Shared::CInputType");
    QCOMPARE(CInputType::staticMetaObject.superClass(), &QObject::staticMetaObject);
}

void tst_CInputType::enumerationsStandInOrder()
{
    const QMetaObject &meta = CInputType::staticMetaObject;
    const QVector<QPair<const char *, QVector<Key>>> expected = {
        {"InputType", inputTypes()},
        {"BaseInputType", baseInputTypes()},
    };
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaEnum actual = meta.enumerator(meta.enumeratorOffset() + i);
        QCOMPARE(actual.name(), expected.at(i).first);
        QCOMPARE(actual.keyCount(), expected.at(i).second.size());
        for (int k = 0; k < actual.keyCount(); ++k) {
            QCOMPARE(actual.key(k), expected.at(i).second.at(k).name);
            QCOMPARE(actual.value(k), expected.at(i).second.at(k).value);
        }
    }
}

void tst_CInputType::propertiesStandInOrder()
{
    const QVector<Property> expected = {
        {"caption", "QString"},       {"boundColumn", "QString"},   {"unit", "QString"},
        {"mandatory", "bool"},        {"hasList", "bool"},          {"editableList", "bool"},
        {"inputType", "InputType"},   {"maximumTextLength", "int"}, {"minimumValue", "QVariant"},
        {"maximumValue", "QVariant"}, {"itemList", "QVariantList"}, {"displayFormat", "QString"},
        {"controlType", "int"},
    };
    const QMetaObject &meta = CInputType::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaProperty property = meta.property(meta.propertyOffset() + i);
        QCOMPARE(property.name(), expected.at(i).name);
        QCOMPARE(property.typeName(), expected.at(i).type);
        QVERIFY2(property.isReadable() && !property.isWritable() && !property.isResettable(),
                 property.name());
        const bool isList = property.name() == QByteArrayLiteral("itemList");
        QCOMPARE(property.isConstant(), !isList);
        QCOMPARE(property.hasNotifySignal(), isList);
        QCOMPARE(property.notifySignal().name(),
                 isList ? QByteArrayLiteral("itemListChanged") : QByteArray());
    }
}

void tst_CInputType::methodsStandInOrder()
{
    struct Method
    {
        const char *signature;
        const char *type;
        QMetaMethod::MethodType kind;
    };
    const QVector<Method> expected = {
        {"itemListChanged()", "void", QMetaMethod::Signal},
        {"textFromListIndex(int)", "QString", QMetaMethod::Method},
        {"valueFromListIndex(int)", "QVariant", QMetaMethod::Method},
        {"listIndexFromValue(QVariant)", "int", QMetaMethod::Method},
        {"valuesToHide()", "QString", QMetaMethod::Method},
    };
    const QMetaObject &meta = CInputType::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(expected.at(i).signature));
        QCOMPARE(method.typeName(), expected.at(i).type);
        QCOMPARE(method.methodType(), expected.at(i).kind);
        QCOMPARE(method.access(), QMetaMethod::Public);
    }
}

void tst_CInputType::virtualFunctionsStandInOrder()
{
    const QVector<std::ptrdiff_t> places = {
        LastOfQObject::slot(),
        slotOf(&CInputType::caption),
        slotOf(&CInputType::boundColumn),
        slotOf(&CInputType::unit),
        slotOf(&CInputType::displayFormat),
        slotOf(&CInputType::mandatory),
        slotOf(&CInputType::hasList),
        slotOf(&CInputType::editableList),
        slotOf(&CInputType::inputType),
        slotOf(&CInputType::maximumTextLength),
        slotOf(&CInputType::controlType),
        slotOf(&CInputType::minimumValue),
        slotOf(&CInputType::maximumValue),
        slotOf(&CInputType::itemList),
        slotOf(&CInputType::textFromListIndex),
        slotOf(&CInputType::valueFromListIndex),
        slotOf(&CInputType::listIndexFromValue),
        slotOf(&CInputType::valuesToHide),
        slotOf(&CInputType::setValuesToHide),
    };
    for (int i = 1; i < places.size(); ++i) {
        QVERIFY2(places.at(i) - places.at(i - 1) == sizeof(void *), qPrintable(QString::number(i)));
    }
}

void tst_CInputType::propertiesAskTheVirtualFunctions()
{
    const ListColumn column;
    QCOMPARE(column.property("caption"), QVariant(QStringLiteral("Material")));
    QCOMPARE(column.property("boundColumn"), QVariant(QStringLiteral("pipe_material")));
    QCOMPARE(column.property("unit"), QVariant(QStringLiteral("inch")));
    QCOMPARE(column.property("inputType").toInt(), 7);
    QCOMPARE(column.property("maximumTextLength"), QVariant(42));
    QCOMPARE(column.property("minimumValue"), QVariant(-1.5));
    QCOMPARE(column.property("maximumValue"), QVariant(250));
    QCOMPARE(column.property("itemList"), QVariant(column.itemList()));
    QCOMPARE(column.property("displayFormat"), QVariant(QStringLiteral("0.00")));
    QCOMPARE(column.property("controlType"), QVariant(9));
}

void tst_CInputType::flagsAreNotMixedUp_data()
{
    QTest::addColumn<int>("flag");

    QTest::newRow("mandatory") << 0;
    QTest::newRow("hasList") << 1;
    QTest::newRow("editableList") << 2;
}

void tst_CInputType::flagsAreNotMixedUp()
{
    QFETCH(int, flag);
    ListColumn column;
    column.setTrueFlag(flag);
    QCOMPARE(column.property("mandatory"), QVariant(flag == 0));
    QCOMPARE(column.property("hasList"), QVariant(flag == 1));
    QCOMPARE(column.property("editableList"), QVariant(flag == 2));
}

void tst_CInputType::invokableFunctionsAskTheVirtualFunctions()
{
    ListColumn column;
    column.setValuesToHide(QStringLiteral("hidden"));

    QString text;
    QVERIFY(QMetaObject::invokeMethod(&column, "textFromListIndex", Q_RETURN_ARG(QString, text),
                                      Q_ARG(int, 1)));
    QCOMPARE(text, QStringLiteral("steel"));

    QVariant value;
    QVERIFY(QMetaObject::invokeMethod(&column, "valueFromListIndex", Q_RETURN_ARG(QVariant, value),
                                      Q_ARG(int, 1)));
    QCOMPARE(value, QVariant(101));

    int index = -1;
    QVERIFY(QMetaObject::invokeMethod(&column, "listIndexFromValue", Q_RETURN_ARG(int, index),
                                      Q_ARG(QVariant, QVariant(101))));
    QCOMPARE(index, 1);

    QVERIFY(QMetaObject::invokeMethod(&column, "valuesToHide", Q_RETURN_ARG(QString, text)));
    QCOMPARE(text, QStringLiteral("hidden"));
}

void tst_CInputType::itemListAnnouncesItsChange()
{
    ListColumn column;
    QSignalSpy spy(&column, &CInputType::itemListChanged);
    Q_EMIT column.itemListChanged();
    QCOMPARE(spy.count(), 1);
}

void tst_CInputType::valuesToHideAreStored()
{
    ListColumn column;
    QSignalSpy spy(&column, &CInputType::itemListChanged);
    QCOMPARE(column.valuesToHide(), QString());
    column.setValuesToHide(QStringLiteral("A;B"));
    QCOMPARE(column.valuesToHide(), QStringLiteral("A;B"));
    column.setValuesToHide(QString());
    QCOMPARE(column.valuesToHide(), QString());
    QCOMPARE(spy.count(), 0);
}

void tst_CInputType::valuesToHideCannotBeSetByName()
{
    QCOMPARE(CInputType::staticMetaObject.indexOfMethod("setValuesToHide(QString)"), -1);
    QCOMPARE(CInputType::staticMetaObject.indexOfProperty("valuesToHide"), -1);
}

void tst_CInputType::qmlReadsEveryProperty_data()
{
    QTest::addColumn<QByteArray>("expression");
    QTest::addColumn<QVariant>("expected");

    const auto row = [](const char *expression, const QVariant &expected) {
        QTest::newRow(expression) << QByteArray(expression) << expected;
    };
    row("column.caption", QStringLiteral("Material"));
    row("column.boundColumn", QStringLiteral("pipe_material"));
    row("column.unit", QStringLiteral("inch"));
    row("column.mandatory", true);
    row("column.hasList", false);
    row("column.editableList", false);
    row("column.inputType", 7);
    row("column.maximumTextLength", 42);
    row("column.minimumValue", -1.5);
    row("column.maximumValue", 250);
    row("column.itemList.length", 2);
    row("column.itemList[1]", QStringLiteral("steel"));
    row("column.displayFormat", QStringLiteral("0.00"));
    row("column.controlType", 9);
    row("column.textFromListIndex(0)", QStringLiteral("concrete"));
    row("column.valueFromListIndex(0)", 100);
    row("column.listIndexFromValue(101)", 1);
    row("column.valuesToHide()", QStringLiteral("x"));
    row("typeof column.setValuesToHide", QStringLiteral("undefined"));
}

void tst_CInputType::qmlReadsEveryProperty()
{
    QFETCH(QByteArray, expression);
    ListColumn column;
    column.setValuesToHide(QStringLiteral("x"));
    QTEST(evaluated(column, expression.constData()), "expected");
}

void tst_CInputType::qmlFollowsTheList()
{
    ListColumn column;
    QQmlEngine engine;
    QQmlEngine::setObjectOwnership(&column, QQmlEngine::CppOwnership);
    engine.rootContext()->setContextProperty(QStringLiteral("column"), &column);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "QtObject { property int reads: 0\n"
                      "property int length: { column.itemList; return ++reads } }",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    const int before = object->property("reads").toInt();
    Q_EMIT column.itemListChanged();
    QVERIFY(object->property("reads").toInt() > before);
}

void tst_CInputType::belongsToItsParent()
{
    QCOMPARE(ListColumn().parent(), nullptr);
    auto *parent = new QObject;
    const QPointer<CInputType> column = new ListColumn(parent);
    QCOMPARE(column->parent(), parent);
    delete parent;
    QVERIFY(column.isNull());
}

QTEST_GUILESS_MAIN(tst_CInputType)

#include "tst_CInputType.moc"
