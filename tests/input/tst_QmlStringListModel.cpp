// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/QmlStringListModel.h"
#include "tests/input/Declared.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Test;
using Tavro::Shared::QmlStringListModel;

namespace {

/** Writes down what a view hears, in order. */
class ModelLog
{
public:
    explicit ModelLog(QmlStringListModel &model)
    {
        const auto add = [this](const QString &text) { m_signals.append(text); };
        QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &model,
                         [add] { add(QStringLiteral("reset begins")); });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &model,
                         [add] { add(QStringLiteral("reset ends")); });
        QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, &model,
                         [add](const QModelIndex &, int first, int last) {
                             add(QStringLiteral("inserts %1-%2").arg(first).arg(last));
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model,
                         [add](const QModelIndex &, int first, int last) {
                             add(QStringLiteral("inserted %1-%2").arg(first).arg(last));
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, &model,
                         [add](const QModelIndex &, int first, int last) {
                             add(QStringLiteral("removes %1-%2").arg(first).arg(last));
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                         [add](const QModelIndex &, int first, int last) {
                             add(QStringLiteral("removed %1-%2").arg(first).arg(last));
                         });
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &model,
                         [add](const QModelIndex &first, const QModelIndex &last) {
                             add(QStringLiteral("changed %1-%2").arg(first.row()).arg(last.row()));
                         });
        QObject::connect(&model, &QmlStringListModel::maxLineNumberChanged, &model, [add, &model] {
            add(QStringLiteral("lines %1").arg(model.getMaxLineNumber()));
        });
        QObject::connect(
            &model, &QmlStringListModel::maxLineNumberAllFavoritesChanged, &model, [add, &model] {
                add(QStringLiteral("bound %1").arg(model.getMaxLineNumberAllFavorites()));
            });
    }

    /** What was heard since the last call, with blanks and bars between. */
    QString take() { return std::exchange(m_signals, {}).join(QStringLiteral(" | ")); }

private:
    QStringList m_signals;
};

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList result;
    for (const char *text : texts) {
        result += QString::fromUtf8(text);
    }
    return result;
}

} // namespace

class tst_QmlStringListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWithItsLimitsAtFirst();
    void lineNumberIsClamped_data();
    void lineNumberIsClamped();
    void lineNumberAboveTheBoundIsAnnouncedEachTime();
    void boundIsOnlyRaised();
    void listIsNotShortened();
    void pushFrontResetsAroundTheRow();
    void pushBackAnnouncesTheRow();
    void pushedTextsStandInOrder();
    void duplicatesAreAllowed();
    void removeAnnouncesTheRow();
    void removeOutsideOfTheListDoesNothing_data();
    void removeOutsideOfTheListDoesNothing();
    void containsComparesWholeRows_data();
    void containsComparesWholeRows();
    void setDataResets_data();
    void setDataResets();
    void behavesAsAModel();
    void metaObjectHasItsOrder();
};

void tst_QmlStringListModel::isEmptyWithItsLimitsAtFirst()
{
    const QmlStringListModel model;
    QCOMPARE(model.getMaxLineNumber(), 3);
    QCOMPARE(model.getMaxLineNumberAllFavorites(), 14);
    QCOMPARE(model.property("maxlinenumber"), QVariant(3));
    QCOMPARE(model.property("maxLineNumberAllFavorites"), QVariant(14));
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.parent(), nullptr);
}

void tst_QmlStringListModel::lineNumberIsClamped_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("stored");
    QTest::addColumn<bool>("isAnnounced");

    QTest::newRow("the same") << 3 << 3 << false;
    QTest::newRow("another") << 5 << 5 << true;
    QTest::newRow("lowest") << 1 << 1 << true;
    QTest::newRow("zero") << 0 << 1 << true;
    QTest::newRow("negative") << -7 << 1 << true;
    QTest::newRow("lowest of all") << -2147483647 - 1 << 1 << true;
    QTest::newRow("below the bound") << 13 << 13 << true;
    QTest::newRow("the bound") << 14 << 14 << true;
    QTest::newRow("just above the bound") << 15 << 14 << true;
    QTest::newRow("above the bound") << 20 << 14 << true;
    QTest::newRow("highest of all") << 2147483647 << 14 << true;
}

void tst_QmlStringListModel::lineNumberIsClamped()
{
    QFETCH(int, number);
    QFETCH(int, stored);
    QFETCH(bool, isAnnounced);

    QmlStringListModel model;
    ModelLog log(model);
    model.setMaxLineNumber(number);
    QCOMPARE(model.getMaxLineNumber(), stored);
    QCOMPARE(log.take(), isAnnounced ? QStringLiteral("lines %1").arg(stored) : QString());
    QCOMPARE(model.getMaxLineNumberAllFavorites(), 14);
}

void tst_QmlStringListModel::lineNumberAboveTheBoundIsAnnouncedEachTime()
{
    QmlStringListModel model;
    ModelLog log(model);
    model.setMaxLineNumber(20);
    QCOMPARE(log.take(), QStringLiteral("lines 14"));
    model.setMaxLineNumber(20);
    QCOMPARE(log.take(), QStringLiteral("lines 14"));
    model.setMaxLineNumber(14);
    QCOMPARE(log.take(), QString());
    // and so is one below the lowest
    model.setMaxLineNumber(0);
    QCOMPARE(log.take(), QStringLiteral("lines 1"));
    model.setMaxLineNumber(0);
    QCOMPARE(log.take(), QStringLiteral("lines 1"));
    model.setMaxLineNumber(1);
    QCOMPARE(log.take(), QString());
}

void tst_QmlStringListModel::boundIsOnlyRaised()
{
    QmlStringListModel model;
    ModelLog log(model);
    for (const int bound : {10, 14, 0, -1}) {
        model.setMaxLineNumberAllFavorites(bound);
        QCOMPARE(model.getMaxLineNumberAllFavorites(), 14);
        QCOMPARE(log.take(), QString());
    }
    model.setMaxLineNumberAllFavorites(20);
    QCOMPARE(model.getMaxLineNumberAllFavorites(), 20);
    QCOMPARE(model.getMaxLineNumber(), 3);
    QCOMPARE(log.take(), QStringLiteral("bound 20"));
    model.setMaxLineNumber(17);
    QCOMPARE(log.take(), QStringLiteral("lines 17"));
    QVERIFY(model.setProperty("maxLineNumberAllFavorites", 21));
    QCOMPARE(log.take(), QStringLiteral("bound 21"));
    QVERIFY(model.setProperty("maxlinenumber", 2));
    QCOMPARE(log.take(), QStringLiteral("lines 2"));
}

void tst_QmlStringListModel::listIsNotShortened()
{
    QmlStringListModel model;
    for (int i = 0; i < 20; ++i) {
        model.push_back(QString::number(i));
        model.push_front(QString::number(-i));
    }
    model.setMaxLineNumber(1);
    QCOMPARE(model.rowCount(), 40);
}

void tst_QmlStringListModel::pushFrontResetsAroundTheRow()
{
    QmlStringListModel model;
    ModelLog log(model);
    model.push_front(QStringLiteral("y"));
    QCOMPARE(
        log.take(),
        QStringLiteral("reset begins | inserts 0-0 | inserted 0-0 | changed 0-0 | reset ends"));
    model.push_front(QStringLiteral("x"));
    QCOMPARE(
        log.take(),
        QStringLiteral("reset begins | inserts 0-0 | inserted 0-0 | changed 0-0 | reset ends"));
    model.push_front(QString()); // a new row is empty already
    QCOMPARE(log.take(), QStringLiteral("reset begins | inserts 0-0 | inserted 0-0 | reset ends"));
    QCOMPARE(model.stringList(), list({"", "x", "y"}));
}

void tst_QmlStringListModel::pushBackAnnouncesTheRow()
{
    QmlStringListModel model;
    ModelLog log(model);
    model.push_back(QStringLiteral("x"));
    QCOMPARE(log.take(), QStringLiteral("inserts 0-0 | inserted 0-0 | changed 0-0"));
    model.push_back(QStringLiteral("y"));
    QCOMPARE(log.take(), QStringLiteral("inserts 1-1 | inserted 1-1 | changed 1-1"));
    model.push_back(QString());
    QCOMPARE(log.take(), QStringLiteral("inserts 2-2 | inserted 2-2"));
    QCOMPARE(model.stringList(), list({"x", "y", ""}));
}

void tst_QmlStringListModel::pushedTextsStandInOrder()
{
    QmlStringListModel model;
    model.push_front(QStringLiteral("y"));
    model.push_front(QStringLiteral("x"));
    QCOMPARE(model.stringList(), list({"x", "y"}));
    model.push_back(QStringLiteral("z"));
    QCOMPARE(model.stringList(), list({"x", "y", "z"}));
}

void tst_QmlStringListModel::duplicatesAreAllowed()
{
    QmlStringListModel model;
    model.push_back(QStringLiteral("x"));
    model.push_back(QStringLiteral("x"));
    model.push_front(QStringLiteral("x"));
    QCOMPARE(model.stringList(), list({"x", "x", "x"}));
}

void tst_QmlStringListModel::removeAnnouncesTheRow()
{
    QmlStringListModel model;
    model.setStringList(list({"x", "y", "z"}));
    ModelLog log(model);
    QVERIFY(model.remove(1));
    QCOMPARE(model.stringList(), list({"x", "z"}));
    QCOMPARE(log.take(), QStringLiteral("removes 1-1 | removed 1-1"));
}

void tst_QmlStringListModel::removeOutsideOfTheListDoesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("behind the last") << 3;
    QTest::newRow("far behind") << 5;
    QTest::newRow("negative") << -1;
    QTest::newRow("highest number") << 2147483647;
    QTest::newRow("lowest number") << -2147483647 - 1;
}

void tst_QmlStringListModel::removeOutsideOfTheListDoesNothing()
{
    QFETCH(int, index);

    QmlStringListModel model;
    model.setStringList(list({"x", "y", "z"}));
    ModelLog log(model);
    QVERIFY(!model.remove(index));
    QCOMPARE(model.stringList(), list({"x", "y", "z"}));
    QCOMPARE(log.take(), QString());
}

void tst_QmlStringListModel::containsComparesWholeRows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("sensitive");
    QTest::addColumn<bool>("insensitive");

    QTest::newRow("a row") << QStringLiteral("a") << true << true;
    QTest::newRow("in another case") << QStringLiteral("A") << false << true;
    QTest::newRow("part of a row") << QStringLiteral("long") << false << false;
    QTest::newRow("beyond ASCII") << QString::fromUtf8("ÄHRE") << false << true;
    QTest::newRow("empty") << QString() << false << false;
    QTest::newRow("missing") << QStringLiteral("b") << false << false;
}

void tst_QmlStringListModel::containsComparesWholeRows()
{
    QFETCH(QString, text);

    QmlStringListModel model;
    model.setStringList(list({"a", "a long one", "ähre"}));
    QTEST(model.contains(text), "sensitive");
    QTEST(model.contains(text, Qt::CaseSensitive), "sensitive");
    QTEST(model.contains(text, Qt::CaseInsensitive), "insensitive");
}

void tst_QmlStringListModel::setDataResets_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isSet");
    QTest::addColumn<QString>("heard");

    const QString changed = QStringLiteral("reset begins | changed 1-1 | reset ends");
    const QString unchanged = QStringLiteral("reset begins | reset ends");
    QTest::newRow("edited") << 1 << int(Qt::EditRole) << QStringLiteral("b") << true << changed;
    QTest::newRow("displayed") << 1 << int(Qt::DisplayRole) << QStringLiteral("b") << true
                               << changed;
    QTest::newRow("the same text")
        << 1 << int(Qt::EditRole) << QStringLiteral("y") << true << unchanged;
    QTest::newRow("another role") << 1 << int(Qt::ToolTipRole) << QStringLiteral("b") << false
                                  << unchanged;
    QTest::newRow("no such row") << 7 << int(Qt::EditRole) << QStringLiteral("b") << false
                                 << unchanged;
}

void tst_QmlStringListModel::setDataResets()
{
    QFETCH(int, row);
    QFETCH(int, role);
    QFETCH(QString, value);
    QFETCH(QString, heard);

    QmlStringListModel model;
    model.setStringList(list({"x", "y"}));
    ModelLog log(model);
    QAbstractItemModel &base = model; // as a view calls it
    QTEST(base.setData(model.index(row), value, role), "isSet");
    QCOMPARE(log.take(), heard);
    const bool isChanged = heard.contains(QLatin1String("changed"));
    QCOMPARE(model.stringList(), isChanged ? list({"x", "b"}) : list({"x", "y"}));
    if (role == Qt::EditRole) { // which is the one when none is given
        model.setStringList(list({"x", "y"}));
        log.take();
        QTEST(model.setData(model.index(row), value), "isSet");
        QCOMPARE(log.take(), heard);
    }
}

void tst_QmlStringListModel::behavesAsAModel()
{
    QmlStringListModel model;
    // without push_front() and setData(), whose rows and changes come within their reset
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int i = 0; i < 5; ++i) {
        model.push_back(QString::number(i));
    }
    QVERIFY(model.remove(4));
    QVERIFY(model.remove(0));
    QVERIFY(!model.remove(3));
    QCOMPARE(model.stringList(), list({"1", "2", "3"}));
}

void tst_QmlStringListModel::metaObjectHasItsOrder()
{
    const QMetaObject &meta = QmlStringListModel::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::QmlStringListModel");
    QCOMPARE(meta.superClass(), &QStringListModel::staticMetaObject);
    const QStringList methods = list({
        "signal void maxLineNumberChanged()",
        "signal void maxLineNumberAllFavoritesChanged()",
        "invokable void push_front(QString str)",
        "invokable void push_back(QString str)",
        "invokable bool remove(int index)",
        "invokable bool contains(QString str, Qt::CaseSensitivity cs)",
        "invokable bool contains(QString str)",
        "invokable bool setData(QModelIndex index, QVariant value, int role)",
        "invokable bool setData(QModelIndex index, QVariant value)",
    });
    QCOMPARE(declaredMethods(meta), methods);
    const QStringList properties = list({
        "int maxlinenumber read write notify maxLineNumberChanged()",
        "int maxLineNumberAllFavorites read write notify maxLineNumberAllFavoritesChanged()",
    });
    QCOMPARE(declaredProperties(meta), properties);
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

QTEST_GUILESS_MAIN(tst_QmlStringListModel)

#include "tst_QmlStringListModel.moc"
