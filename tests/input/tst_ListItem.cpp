// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/CodeListItem.h"
#include "shared/input/ListItem.h"

#include <QTest>

#include <type_traits>

using Tavro::Shared::CodeListItem;
using Tavro::Shared::ListItem;

static_assert(!std::is_polymorphic_v<ListItem>);
static_assert(!std::is_polymorphic_v<CodeListItem>);

// the texts are read without a copy
static_assert(std::is_same_v<decltype(std::declval<const ListItem &>().key()), const QVariant &>);
static_assert(std::is_same_v<decltype(std::declval<const ListItem &>().text()), const QString &>);
static_assert(std::is_same_v<decltype(std::declval<const ListItem &>().value()), const QString &>);
static_assert(
    std::is_same_v<decltype(std::declval<const CodeListItem &>().code()), const QString &>);
static_assert(
    std::is_same_v<decltype(std::declval<const CodeListItem &>().text()), const QString &>);
static_assert(
    std::is_same_v<decltype(std::declval<const CodeListItem &>().objectId()), const QString &>);

/** The entries of lists: ListItem and CodeListItem. */
class tst_ListItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listItemIsEmptyAtFirst();
    void listItemHoldsWhatItIsGiven();
    void listItemIsCopied();
    void codeListItemIsEmptyAtFirst();
    void codeListItemHoldsWhatItIsGiven();
    void codeListItemIsCopied();
};

void tst_ListItem::listItemIsEmptyAtFirst()
{
    const ListItem item;
    QVERIFY(!item.key().isValid());
    QCOMPARE(item.text(), QString());
    QCOMPARE(item.value(), QString());
}

void tst_ListItem::listItemHoldsWhatItIsGiven()
{
    ListItem item(7, QStringLiteral("Crack"), QStringLiteral("BAB"));
    QCOMPARE(item.key(), QVariant(7));
    QCOMPARE(item.text(), QStringLiteral("Crack"));
    QCOMPARE(item.value(), QStringLiteral("BAB"));

    item.setKey(QStringLiteral("k"));
    QCOMPARE(item.key(), QVariant(QStringLiteral("k")));
    item.setText(QStringLiteral("  Break "));
    QCOMPARE(item.text(), QStringLiteral("  Break "));
    item.setValue(QStringLiteral("BAC"));
    QCOMPARE(item.value(), QStringLiteral("BAC"));
    QCOMPARE(item.text(), QStringLiteral("  Break "));
}

void tst_ListItem::listItemIsCopied()
{
    const ListItem item(7, QStringLiteral("Crack"), QStringLiteral("BAB"));
    ListItem copy = item;
    copy.setText(QStringLiteral("Break"));
    QCOMPARE(item.text(), QStringLiteral("Crack"));
    QCOMPARE(copy.key(), QVariant(7));
    copy = item;
    QCOMPARE(copy.text(), QStringLiteral("Crack"));
}

void tst_ListItem::codeListItemIsEmptyAtFirst()
{
    const CodeListItem item;
    QCOMPARE(item.code(), QString());
    QCOMPARE(item.text(), QString());
    QCOMPARE(item.objectId(), QString());
}

void tst_ListItem::codeListItemHoldsWhatItIsGiven()
{
    CodeListItem item(QStringLiteral("A"), QStringLiteral("Concrete"), QStringLiteral("{1}"));
    QCOMPARE(item.code(), QStringLiteral("A"));
    QCOMPARE(item.text(), QStringLiteral("Concrete"));
    QCOMPARE(item.objectId(), QStringLiteral("{1}"));

    item.setCode(QStringLiteral("B"));
    QCOMPARE(item.code(), QStringLiteral("B"));
    item.setText(QStringLiteral("Clay"));
    QCOMPARE(item.text(), QStringLiteral("Clay"));
    item.setObjectId(QStringLiteral("{2}"));
    QCOMPARE(item.objectId(), QStringLiteral("{2}"));
    QCOMPARE(item.code(), QStringLiteral("B"));
}

void tst_ListItem::codeListItemIsCopied()
{
    const CodeListItem item(QStringLiteral("A"), QStringLiteral("Concrete"), QStringLiteral("{1}"));
    CodeListItem copy = item;
    copy.setCode(QStringLiteral("B"));
    QCOMPARE(item.code(), QStringLiteral("A"));
    copy = item;
    QCOMPARE(copy.code(), QStringLiteral("A"));
    QCOMPARE(copy.objectId(), QStringLiteral("{1}"));
}

QTEST_APPLESS_MAIN(tst_ListItem)

#include "tst_ListItem.moc"
