// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/input/Declared.h"

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>

namespace Test {

namespace {

QString kindOf(const QMetaMethod &method)
{
    switch (method.methodType()) {
    case QMetaMethod::Signal:
        return QStringLiteral("signal");
    case QMetaMethod::Slot:
        return QStringLiteral("slot");
    case QMetaMethod::Constructor:
        return QStringLiteral("constructor");
    case QMetaMethod::Method:
        break;
    }
    return QStringLiteral("invokable");
}

QString textOf(const QMetaMethod &method)
{
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    QStringList parameters;
    for (int i = 0; i < types.size(); ++i) {
        parameters += QString::fromLatin1(types.at(i) + ' ' + names.at(i));
    }
    return QStringLiteral("%1 %2 %3(%4)")
        .arg(kindOf(method), QString::fromLatin1(method.typeName()),
             QString::fromLatin1(method.name()), parameters.join(QLatin1String(", ")));
}

} // namespace

QStringList declaredMethods(const QMetaObject &meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        methods += textOf(meta.method(i));
    }
    return methods;
}

QStringList declaredProperties(const QMetaObject &meta)
{
    QStringList properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        QString text = QString::fromLatin1(QByteArray(property.typeName()) + ' ' + property.name());
        if (property.isReadable()) {
            text += QLatin1String(" read");
        }
        if (property.isWritable()) {
            text += QLatin1String(" write");
        }
        if (property.isConstant()) {
            text += QLatin1String(" constant");
        }
        if (property.hasNotifySignal()) {
            text += QLatin1String(" notify ")
                + QString::fromLatin1(property.notifySignal().methodSignature());
        }
        properties += text;
    }
    return properties;
}

QStringList declaredKeys(const QMetaObject &meta, const char *name)
{
    const QMetaEnum enumeration = meta.enumerator(meta.indexOfEnumerator(name));
    QStringList keys;
    for (int i = 0; i < enumeration.keyCount(); ++i) {
        keys += QStringLiteral("%1 %2")
                    .arg(QLatin1String(enumeration.key(i)))
                    .arg(enumeration.value(i));
    }
    return keys;
}

} // namespace Test
