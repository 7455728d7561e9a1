// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/forms/FormFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>

#include <algorithm>
#include <initializer_list>

namespace Tavro::FieldHost {

using Shared::CInputType;
using Shared::CodeListItem;

namespace {

constexpr int s_format = 1;

using CodeLists = QMap<QString, QList<CodeListItem>>;

/** Turns the values of a file into a form. The first mistake counts, and makes it useless. */
class FormBuilder
{
    Q_DECLARE_TR_FUNCTIONS(Tavro::FieldHost::FormFile)

public:
    const QString &mistake() const { return m_mistake; }

    Form build(const QJsonObject &root)
    {
        checkKeys(root, tr("the form"), {"format", "codeLists", "columns"});
        if (root.value(QLatin1String("format")).toDouble() != s_format) {
            fail(tr("\"format\" is not %1, the only one known").arg(s_format));
        }
        const CodeLists codeLists = codeListsOf(
            objectOf(root.value(QLatin1String("codeLists")), QStringLiteral("\"codeLists\"")));
        const QJsonObject columns =
            objectOf(root.value(QLatin1String("columns")), QStringLiteral("\"columns\""));
        Form form;
        for (auto column = columns.begin(); column != columns.end(); ++column) {
            m_place = tr("column \"%1\"").arg(column.key());
            form.insert(column.key(), columnOf(objectOf(column.value(), tr("it")), codeLists));
        }
        return form;
    }

private:
    CodeLists codeListsOf(const QJsonObject &object)
    {
        CodeLists codeLists;
        for (auto list = object.begin(); list != object.end(); ++list) {
            m_place = tr("code list \"%1\"").arg(list.key());
            const QJsonArray items = list.value().toArray();
            for (const QJsonValue &item : items) {
                const QJsonObject entry = objectOf(item, tr("an entry"));
                checkKeys(entry, tr("an entry"), {"code", "text"});
                codeLists[list.key()] +=
                    CodeListItem(textOf(entry, "code"), textOf(entry, "text"), list.key());
            }
            if (items.isEmpty()) {
                fail(tr("it has no entries"));
            }
        }
        return codeLists;
    }

    ColumnForm columnOf(const QJsonObject &object, const CodeLists &codeLists)
    {
        checkKeys(object, tr("a column"),
                  {"caption", "type", "mandatory", "list", "editableList", "maximumLength",
                   "minimum", "maximum", "displayFormat", "control"});
        ColumnForm column;
        column.caption = textOf(object, "caption");
        column.dataType = textOf(object, "type");
        column.isMandatory = flagOf(object, "mandatory");
        column.isListEditable = flagOf(object, "editableList");
        column.maximumTextLength = lengthOf(object, "maximumLength");
        column.minimumValue = object.value(QLatin1String("minimum")).toVariant();
        column.maximumValue = object.value(QLatin1String("maximum")).toVariant();
        column.displayFormat = textOf(object, "displayFormat");
        column.control = controlOf(textOf(object, "control"));
        const QString list = textOf(object, "list");
        if (!list.isEmpty() && !codeLists.contains(list)) {
            fail(tr("there is no code list \"%1\"").arg(list));
        }
        column.codeList = codeLists.value(list);
        return column;
    }

    CInputType::BaseInputType controlOf(const QString &name)
    {
        if (name.isEmpty()) {
            return CInputType::Unknown;
        }
        bool isKnown = false;
        const int control = QMetaEnum::fromType<CInputType::BaseInputType>().keyToValue(
            name.toLatin1().constData(), &isKnown);
        if (!isKnown) {
            fail(tr("there is no control \"%1\"").arg(name));
            return CInputType::Unknown;
        }
        return static_cast<CInputType::BaseInputType>(control);
    }

    // unknown keys, too, are mistakes: a misspelled one would be lost silently
    void checkKeys(const QJsonObject &object, const QString &what,
                   std::initializer_list<const char *> keys)
    {
        const QStringList present = object.keys();
        for (const QString &name : present) {
            const auto isName = [&name](const char *key) { return name == QLatin1String(key); };
            if (std::none_of(keys.begin(), keys.end(), isName)) {
                fail(tr("%1 has no key \"%2\"").arg(what, name));
            }
        }
    }

    QString textOf(const QJsonObject &object, const char *key)
    {
        const QJsonValue value = object.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isString()) {
            fail(tr("\"%1\" is not a text").arg(QLatin1String(key)));
        }
        return value.toString();
    }

    bool flagOf(const QJsonObject &object, const char *key)
    {
        const QJsonValue value = object.value(QLatin1String(key));
        if (!value.isUndefined() && !value.isBool()) {
            fail(tr("\"%1\" is neither true nor false").arg(QLatin1String(key)));
        }
        return value.toBool();
    }

    int lengthOf(const QJsonObject &object, const char *key)
    {
        const QJsonValue value = object.value(QLatin1String(key));
        const int length = value.toInt(-1); // of anything but a whole number
        if (!value.isUndefined() && length < 0) {
            fail(tr("\"%1\" is not a length").arg(QLatin1String(key)));
        }
        return qMax(length, 0);
    }

    QJsonObject objectOf(const QJsonValue &value, const QString &what)
    {
        if (!value.isUndefined() && !value.isObject()) {
            fail(tr("%1 is not an object").arg(what));
        }
        return value.toObject();
    }

    void fail(const QString &cause)
    {
        if (m_mistake.isEmpty()) {
            m_mistake = m_place.isEmpty() ? cause : m_place + QLatin1String(": ") + cause;
        }
    }

    QString m_place;
    QString m_mistake;
};

} // namespace

std::optional<Form> readForm(const QString &path, QString &error)
{
    error.clear();
    QFile file(path);
    // a pipe would hold the reader up
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        error = FormBuilder::tr("it cannot be read");
        return {};
    }
    QJsonParseError mistake;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &mistake);
    if (!document.isObject()) {
        error = mistake.error != QJsonParseError::NoError ? mistake.errorString()
                                                          : FormBuilder::tr("it is not an object");
        return {};
    }
    FormBuilder builder;
    Form form = builder.build(document.object());
    if (!builder.mistake().isEmpty()) {
        error = builder.mistake();
        return {};
    }
    return form;
}

} // namespace Tavro::FieldHost
