// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/Mandatory3dDef.h"
#include "shared/view3d/ProjectTypeGlobal.h"

#include <QTest>

#include <thread>
#include <vector>

using Tavro::Mandatory3dDef;
using Tavro::ProjectTypeGlobal;

namespace {

const QStringList &mandatoryFields()
{
    static const QStringList fields = {
        QStringLiteral("OBJ_Key"),
        QStringLiteral("OBJ_FromNode_REF"),
        QStringLiteral("OBJ_ToNode_REF"),
        QStringLiteral("OBJ_FromNode_REF.OBJ_Type"),
        QStringLiteral("OBJ_ToNode_REF.OBJ_Type"),
        QStringLiteral("OBJ_Size"),
        QStringLiteral("OBJ_Offset"),
        QStringLiteral("INS_InspectionDir"),
        QStringLiteral("PRJ_Key"),
    };
    return fields;
}

const QStringList &views()
{
    static const QStringList keys = {
        QStringLiteral("detail_s_inspection"),
        QStringLiteral("detail_s"),
        QStringLiteral("detail_p"),
    };
    return keys;
}

} // namespace

class tst_Mandatory3dDef : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasNothingOfItsOwnForQml();
    void listedFieldsAreMandatory();
    void otherFieldsAreOptional_data();
    void otherFieldsAreOptional();
    void otherViewsKeepTheDefault_data();
    void otherViewsKeepTheDefault();
    void otherProjectsKeepTheDefault_data();
    void otherProjectsKeepTheDefault();
    void anyThreadMayAsk();
};

void tst_Mandatory3dDef::init()
{
    ProjectTypeGlobal::instance().setProjectType(QStringLiteral("PRO3D"));
}

void tst_Mandatory3dDef::cleanup()
{
    ProjectTypeGlobal::instance().setProjectType(QString());
}

void tst_Mandatory3dDef::hasNothingOfItsOwnForQml()
{
    const QMetaObject &meta = Mandatory3dDef::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Mandatory3dDef");
    QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_Mandatory3dDef::listedFieldsAreMandatory()
{
    QCOMPARE(mandatoryFields().size(), 9);
    for (const QString &view : views()) {
        for (const QString &field : mandatoryFields()) {
            QVERIFY2(Mandatory3dDef::isMandatory(false, field, view), qPrintable(field));
            QVERIFY2(Mandatory3dDef::isMandatory(true, field, view), qPrintable(field));
        }
    }
}

void tst_Mandatory3dDef::otherFieldsAreOptional_data()
{
    QTest::addColumn<QString>("field");

    QTest::newRow("one of the catalog") << QStringLiteral("OBJ_Material");
    QTest::newRow("empty") << QString();
    QTest::newRow("lower case") << QStringLiteral("obj_size");
    QTest::newRow("a blank at the end") << QStringLiteral("OBJ_Size ");
    QTest::newRow("the last step of a path") << QStringLiteral("OBJ_Type");
    QTest::newRow("another last step") << QStringLiteral("OBJ_FromNode_REF.OBJ_Key");
    QTest::newRow("a path begun") << QStringLiteral("OBJ_FromNode_REF.");
    QTest::newRow("a path that goes on") << QStringLiteral("OBJ_FromNode_REF.OBJ_Type.OBJ_Key");
    QTest::newRow("a view") << QStringLiteral("detail_s");
}

void tst_Mandatory3dDef::otherFieldsAreOptional()
{
    QFETCH(QString, field);

    for (const QString &view : views()) {
        QVERIFY(!Mandatory3dDef::isMandatory(true, field, view));
        QVERIFY(!Mandatory3dDef::isMandatory(false, field, view));
    }
}

void tst_Mandatory3dDef::otherViewsKeepTheDefault_data()
{
    QTest::addColumn<QString>("view");

    QTest::newRow("another one") << QStringLiteral("detail_n");
    QTest::newRow("empty") << QString();
    QTest::newRow("upper case") << QStringLiteral("DETAIL_S");
    QTest::newRow("the beginning of one") << QStringLiteral("detail_");
    QTest::newRow("one that goes on") << QStringLiteral("detail_p_inspection");
    QTest::newRow("a field") << QStringLiteral("OBJ_Size");
}

void tst_Mandatory3dDef::otherViewsKeepTheDefault()
{
    QFETCH(QString, view);

    for (const QString &field : {QStringLiteral("OBJ_Size"), QStringLiteral("OBJ_Material")}) {
        QVERIFY(Mandatory3dDef::isMandatory(true, field, view));
        QVERIFY(!Mandatory3dDef::isMandatory(false, field, view));
    }
}

void tst_Mandatory3dDef::otherProjectsKeepTheDefault_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("empty") << QString();
    QTest::newRow("lower case") << QStringLiteral("pro3d");
    QTest::newRow("another one") << QStringLiteral("PRO2D");
}

void tst_Mandatory3dDef::otherProjectsKeepTheDefault()
{
    QFETCH(QString, type);

    ProjectTypeGlobal::instance().setProjectType(type);
    const QStringList allViews = views() + QStringList(QStringLiteral("detail_n"));
    const QStringList allFields = mandatoryFields() + QStringList(QStringLiteral("OBJ_X"));
    for (const QString &view : allViews) {
        for (const QString &field : allFields) {
            QVERIFY(Mandatory3dDef::isMandatory(true, field, view));
            QVERIFY(!Mandatory3dDef::isMandatory(false, field, view));
        }
    }
}

void tst_Mandatory3dDef::anyThreadMayAsk()
{
    std::vector<std::thread> threads;
    std::vector<int> answers(8);
    threads.reserve(answers.size());
    for (int &count : answers) {
        threads.emplace_back([&count] {
            for (const QString &field : mandatoryFields()) {
                count += Mandatory3dDef::isMandatory(false, field, QStringLiteral("detail_s"));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(answers, std::vector<int>(8, 9));
}

QTEST_APPLESS_MAIN(tst_Mandatory3dDef)

#include "tst_Mandatory3dDef.moc"
