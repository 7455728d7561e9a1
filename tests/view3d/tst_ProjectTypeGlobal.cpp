// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/view3d/ProjectTypeGlobal.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

using Tavro::ProjectTypeGlobal;

class tst_ProjectTypeGlobal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsNoProject();
    void cleanup();

    void metaObjectStandsInOrder();
    void thereIsOne();
    void is3dOnlyInCapitals_data();
    void is3dOnlyInCapitals();
    void a3dProjectIsAnnouncedOnlyOnAChange();
    void aPlumberCatalogIsAnnouncedOnlyOnAChange();
    void theNewValueIsThereWhenItIsAnnounced();
    void qmlFollows();
};

// the first test: nobody has set anything
void tst_ProjectTypeGlobal::startsAsNoProject()
{
    const ProjectTypeGlobal &project = ProjectTypeGlobal::instance();
    QCOMPARE(project.projectType(), QString());
    QVERIFY(!project.is3d());
    QVERIFY(!project.isPlumberCatalog());
    QVERIFY(!project.parent());
}

void tst_ProjectTypeGlobal::cleanup()
{
    ProjectTypeGlobal::instance().setProjectType(QString());
    ProjectTypeGlobal::instance().setIsPlumberCatalog(false);
}

void tst_ProjectTypeGlobal::metaObjectStandsInOrder()
{
    const QMetaObject &meta = ProjectTypeGlobal::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::ProjectTypeGlobal");

    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const char *signalNames[] = {"is3dChanged()", "isPlumberCatalogChanged()"};
    for (int i = 0; i < 2; ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), QByteArray(signalNames[i]));
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
    }

    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    const char *propertyNames[] = {"is3d", "isPlumberCatalog"};
    for (int i = 0; i < 2; ++i) {
        const QMetaProperty property = meta.property(meta.propertyOffset() + i);
        QCOMPARE(property.name(), propertyNames[i]);
        QCOMPARE(property.type(), QVariant::Bool);
        QVERIFY(property.isReadable());
        QVERIFY(!property.isWritable());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray(signalNames[i]));
    }
}

void tst_ProjectTypeGlobal::thereIsOne()
{
    QCOMPARE(&ProjectTypeGlobal::instance(), &ProjectTypeGlobal::instance());
    QCOMPARE(ProjectTypeGlobal::instance().metaObject(), &ProjectTypeGlobal::staticMetaObject);
}

void tst_ProjectTypeGlobal::is3dOnlyInCapitals_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("is3d");

    QTest::newRow("exact") << QStringLiteral("PRO3D") << true;
    QTest::newRow("lower case") << QStringLiteral("pro3d") << false;
    QTest::newRow("a blank at the end") << QStringLiteral("PRO3D ") << false;
    QTest::newRow("more behind it") << QStringLiteral("PRO3D2") << false;
    QTest::newRow("another one") << QStringLiteral("PRO") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_ProjectTypeGlobal::is3dOnlyInCapitals()
{
    QFETCH(QString, type);
    QFETCH(bool, is3d);

    ProjectTypeGlobal::instance().setProjectType(type);
    QCOMPARE(ProjectTypeGlobal::instance().is3d(), is3d);
    QCOMPARE(ProjectTypeGlobal::instance().projectType(), type);
}

void tst_ProjectTypeGlobal::a3dProjectIsAnnouncedOnlyOnAChange()
{
    ProjectTypeGlobal &project = ProjectTypeGlobal::instance();
    QSignalSpy changed(&project, &ProjectTypeGlobal::is3dChanged);
    QSignalSpy other(&project, &ProjectTypeGlobal::isPlumberCatalogChanged);

    project.setProjectType(QStringLiteral("PRO"));
    QCOMPARE(changed.count(), 0); // another type, the same answer
    project.setProjectType(QStringLiteral("PRO3D"));
    QCOMPARE(changed.count(), 1);
    project.setProjectType(QStringLiteral("PRO3D"));
    QCOMPARE(changed.count(), 1);
    project.setProjectType(QStringLiteral("pro3d"));
    QCOMPARE(changed.count(), 2);
    project.setProjectType(QString());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(other.count(), 0);
}

void tst_ProjectTypeGlobal::aPlumberCatalogIsAnnouncedOnlyOnAChange()
{
    ProjectTypeGlobal &project = ProjectTypeGlobal::instance();
    QSignalSpy changed(&project, &ProjectTypeGlobal::isPlumberCatalogChanged);
    QSignalSpy other(&project, &ProjectTypeGlobal::is3dChanged);

    project.setIsPlumberCatalog(false);
    QCOMPARE(changed.count(), 0);
    project.setIsPlumberCatalog(true);
    QCOMPARE(changed.count(), 1);
    QVERIFY(project.isPlumberCatalog());
    project.setIsPlumberCatalog(true);
    QCOMPARE(changed.count(), 1);
    project.setIsPlumberCatalog(false);
    QCOMPARE(changed.count(), 2);
    QVERIFY(!project.isPlumberCatalog());
    QCOMPARE(other.count(), 0);
}

void tst_ProjectTypeGlobal::theNewValueIsThereWhenItIsAnnounced()
{
    ProjectTypeGlobal &project = ProjectTypeGlobal::instance();
    QVector<bool> seen;
    const auto first = connect(&project, &ProjectTypeGlobal::is3dChanged, this,
                               [&] { seen.append(project.is3d()); });
    const auto second = connect(&project, &ProjectTypeGlobal::isPlumberCatalogChanged, this,
                                [&] { seen.append(project.isPlumberCatalog()); });
    project.setProjectType(QStringLiteral("PRO3D"));
    project.setIsPlumberCatalog(true);
    project.setProjectType(QString());
    project.setIsPlumberCatalog(false);
    disconnect(first);
    disconnect(second);
    QCOMPARE(seen, (QVector<bool>{true, true, false, false}));
}

void tst_ProjectTypeGlobal::qmlFollows()
{
    ProjectTypeGlobal &project = ProjectTypeGlobal::instance();
    QQmlEngine::setObjectOwnership(&project, QQmlEngine::CppOwnership);
    qmlRegisterSingletonInstance("Tavro.Test", 1, 0, "ProjectType", &project);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\nimport Tavro.Test 1.0\n"
                      "QtObject { property string text:"
                      " (ProjectType.is3d ? '3d' : 'flat')"
                      " + (ProjectType.isPlumberCatalog ? ' plumber' : '') }",
                      QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("text").toString(), QStringLiteral("flat"));
    project.setProjectType(QStringLiteral("PRO3D"));
    QCOMPARE(object->property("text").toString(), QStringLiteral("3d"));
    project.setIsPlumberCatalog(true);
    QCOMPARE(object->property("text").toString(), QStringLiteral("3d plumber"));
}

QTEST_GUILESS_MAIN(tst_ProjectTypeGlobal)

#include "tst_ProjectTypeGlobal.moc"
