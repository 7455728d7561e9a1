// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "qml/OvoSharedBaseTypes.h"

#include <QFile>
#include <QMap>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTest>
#include <private/qqmlmetatype_p.h>

namespace {

/** What is said of a type: its class, and how it can be used. */
struct TypeEntry
{
    QString className;
    bool isSingleton = false;
    bool isCreatable = false;

    bool operator==(const TypeEntry &other) const
    {
        return className == other.className && isSingleton == other.isSingleton
            && isCreatable == other.isCreatable;
    }
};

using Types = QMap<QString, TypeEntry>;

char *toString(const Types &types)
{
    QStringList lines;
    for (auto type = types.begin(); type != types.end(); ++type) {
        lines += QStringLiteral("%1: %2%3%4")
                     .arg(type.key(), type->className,
                          QLatin1String(type->isSingleton ? ", singleton" : ""),
                          QLatin1String(type->isCreatable ? ", creatable" : ""));
    }
    return qstrdup(qPrintable(lines.join(QLatin1Char('\n'))));
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/** The types of the list that editors read. */
Types listedTypes()
{
    Types types;
    const QString list = textOf(QStringLiteral(OVO_MODULE_DIR "/plugins.qmltypes"));
    const QStringList components =
        list.split(QRegularExpression(QStringLiteral("\n    Component ")));
    static const QRegularExpression className(QStringLiteral("\n        name: \"([^\"]*)\""));
    static const QRegularExpression name(
        QStringLiteral("exports: \\[\"OvoSharedBase/(\\w+) 1.0\"\\]"));
    for (const QString &component : components) {
        const QRegularExpressionMatch exported = name.match(component);
        if (exported.hasMatch()) {
            types.insert(exported.captured(1),
                         {className.match(component).captured(1),
                          component.contains(QLatin1String("isSingleton: true")),
                          !component.contains(QLatin1String("isCreatable: false"))});
        }
    }
    return types;
}

/** The types that an engine knows. */
Types registeredTypes()
{
    Types types;
    const QList<QQmlType> all = QQmlMetaType::qmlTypes();
    for (const QQmlType &type : all) {
        const QString name = type.qmlTypeName();
        if (name.startsWith(QLatin1String("OvoSharedBase/"))) {
            types.insert(name.section(QLatin1Char('/'), 1),
                         {QString::fromLatin1(type.metaObject()->className()), type.isSingleton(),
                          type.isCreatable()});
        }
    }
    return types;
}

} // namespace

/** The type list, the registration and the plugin say the same. */
class tst_TypeList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pluginRegistersWhatIsListed();
    void registrationAfterThePluginDoesNothing();
};

void tst_TypeList::pluginRegistersWhatIsListed()
{
    QVERIFY(registeredTypes().isEmpty());
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OVO_MODULE_DIR "/.."));
    QQmlComponent component(&engine);
    component.setData("import OvoSharedBase 1.0\n"
                      "CFileCopyController { objectName: Formats.current.length(1) }",
                      QUrl());
    const QScopedPointer<QObject> controller(component.create());
    QVERIFY2(controller, qPrintable(component.errorString()));
    QVERIFY(controller->inherits("Tavro::Shared::CFileCopyController"));
    QCOMPARE(controller->objectName(), QStringLiteral("1.00 m"));

    const Types listed = listedTypes();
    QVERIFY(listed.size() >= 20);
    QCOMPARE(registeredTypes(), listed);
}

void tst_TypeList::registrationAfterThePluginDoesNothing()
{
    const int before = QQmlMetaType::qmlTypes().size();
    QVERIFY(!registeredTypes().isEmpty());
    registerOvoSharedBaseTypes();
    QCOMPARE(QQmlMetaType::qmlTypes().size(), before);
}

QTEST_GUILESS_MAIN(tst_TypeList)
#include "tst_TypeList.moc"
