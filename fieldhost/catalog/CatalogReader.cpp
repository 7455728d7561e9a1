// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/CatalogReader.h"

#include "fieldhost/catalog/JsonTree.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <initializer_list>
#include <utility>
#include <vector>

namespace Tavro::FieldHost {

namespace {

// as much as a tablet reads at once without a thought; real catalogs have some hundred KiB
constexpr qint64 s_largestFile = Q_INT64_C(16) * 1024 * 1024;

constexpr int s_format = 1;

enum class Presence { Required, Optional };

// a key of an object in the file
struct Key
{
    const char *name;
    Presence presence;
};

QString listed(std::initializer_list<Key> keys)
{
    QStringList names;
    for (const Key &key : keys) {
        names += QStringLiteral("\"%1\"").arg(QLatin1String(key.name));
    }
    return names.join(QLatin1String(", "));
}

QString kindOf(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return CatalogText::tr("null");
    case QJsonValue::Bool:
        return CatalogText::tr("true or false");
    case QJsonValue::Double:
        return CatalogText::tr("a number");
    case QJsonValue::String:
        return CatalogText::tr("a text");
    case QJsonValue::Array:
        return CatalogText::tr("a list");
    case QJsonValue::Object:
        return CatalogText::tr("an object");
    case QJsonValue::Undefined:
        break;
    }
    return CatalogText::tr("nothing");
}

/** Turns the values of a file into a catalog. The first mistake counts, and makes it useless. */
class CatalogBuilder
{
public:
    CatalogBuilder(const QString &file, const Catalogs &others)
        : m_file(file)
        , m_others(others)
    {
    }

    const JsonMistake &mistake() const { return m_mistake; }

    Catalog build(const JsonNode &root)
    {
        Catalog catalog;
        // first: another format may have other keys
        checkFormat(root);
        checkObject(root, CatalogText::tr("a catalog"),
                    {{"format", Presence::Required},
                     {"id", Presence::Required},
                     {"name", Presence::Required},
                     {"country", Presence::Required},
                     {"language", Presence::Required},
                     {"template", Presence::Required}});
        catalog.descriptor.id =
            idOf(root, CatalogText::tr("the catalog id \"%1\" is taken by \"%2\""),
                 &CatalogDescriptor::id);
        catalog.descriptor.name = textOf(root, "name");
        catalog.descriptor.countryCode = textOf(root, "country");
        catalog.descriptor.languageCode = textOf(root, "language");
        catalog.descriptor.file = m_file;
        if (const JsonNode *node = root.member(QStringLiteral("template"))) {
            checkObject(*node, CatalogText::tr("a template"),
                        {{"id", Presence::Required},
                         {"unit", Presence::Optional},
                         {"views", Presence::Required}});
            catalog.descriptor.templateId =
                idOf(*node, CatalogText::tr("the template id \"%1\" is taken by \"%2\""),
                     &CatalogDescriptor::templateId);
            catalog.catalogTemplate =
                QSharedPointer<CatalogTemplate>::create(unitOf(*node), viewsOf(*node));
        }
        return catalog;
    }

private:
    // unknown keys, too, are mistakes: whoever writes "untis" wants to hear of it
    void checkObject(const JsonNode &node, const QString &what, std::initializer_list<Key> keys)
    {
        if (!node.value.isObject()) {
            fail(node.offset,
                 CatalogText::tr("%1 is an object, this is %2").arg(what, kindOf(node.value)));
            return;
        }
        QStringList seen;
        for (const JsonMember &member : node.members) {
            if (seen.contains(member.key)) {
                fail(member.keyOffset,
                     CatalogText::tr("the key \"%1\" is there twice").arg(member.key));
            }
            seen += member.key;
        }
        for (const Key &key : keys) {
            const QString name = QLatin1String(key.name);
            if (seen.removeAll(name) == 0 && key.presence == Presence::Required) {
                fail(node.offset, CatalogText::tr("%1 needs the key \"%2\"").arg(what, name));
            }
        }
        for (const JsonMember &member : node.members) {
            if (seen.contains(member.key)) {
                fail(member.keyOffset,
                     CatalogText::tr("the key \"%1\" is not among those of %2: %3")
                         .arg(member.key, what, listed(keys)));
            }
        }
    }

    void checkFormat(const JsonNode &root)
    {
        const JsonNode *node = root.member(QStringLiteral("format"));
        if (!node) {
            return;
        }
        if (!node->value.isDouble()) {
            fail(node->offset,
                 CatalogText::tr("\"format\" is a number, this is %1").arg(kindOf(node->value)));
        } else if (node->value.toDouble() != s_format) {
            fail(node->offset,
                 CatalogText::tr("this is format %1, and only format %2 is known")
                     .arg(node->value.toDouble())
                     .arg(s_format));
        }
    }

    QString idOf(const JsonNode &object, const QString &isTaken,
                 QString CatalogDescriptor::*idOfOther)
    {
        QString id = textOf(object, "id");
        for (const auto &[key, other] : m_others) {
            if (other.*idOfOther == id) {
                fail(object.member(QStringLiteral("id"))->offset, isTaken.arg(id, other.file));
            }
        }
        return id;
    }

    std::vector<CatalogView> viewsOf(const JsonNode &object)
    {
        std::vector<CatalogView> views;
        for (const JsonNode &node : listOf(object, "views")) {
            checkObject(node, CatalogText::tr("a view"),
                        {{"key", Presence::Required}, {"columns", Presence::Required}});
            views.emplace_back(textOf(node, "key"), columnsOf(node));
        }
        return views;
    }

    std::vector<CatalogColumn> columnsOf(const JsonNode &object)
    {
        std::vector<CatalogColumn> columns;
        for (const JsonNode &node : listOf(object, "columns")) {
            checkObject(node, CatalogText::tr("a column"),
                        {{"key", Presence::Required}, {"unit", Presence::Optional}});
            columns.emplace_back(textOf(node, "key"), unitOf(node));
        }
        return columns;
    }

    // not empty, unless something is wrong
    QString textOf(const JsonNode &object, const char *key)
    {
        const JsonNode *node = object.member(QLatin1String(key));
        QString text = anyTextOf(node, key);
        if (node && text.isEmpty()) {
            fail(node->offset, CatalogText::tr("\"%1\" is empty").arg(QLatin1String(key)));
        }
        return text;
    }

    QString unitOf(const JsonNode &object)
    {
        return anyTextOf(object.member(QStringLiteral("unit")), "unit");
    }

    QString anyTextOf(const JsonNode *node, const char *key)
    {
        if (node && !node->value.isString()) {
            fail(node->offset,
                 CatalogText::tr("\"%1\" is a text, this is %2")
                     .arg(QLatin1String(key), kindOf(node->value)));
        }
        return node ? node->value.toString() : QString();
    }

    const std::vector<JsonNode> &listOf(const JsonNode &object, const char *key)
    {
        static const std::vector<JsonNode> none;
        const JsonNode *node = object.member(QLatin1String(key));
        if (node && !node->value.isArray()) {
            fail(node->offset,
                 CatalogText::tr("\"%1\" is a list, this is %2")
                     .arg(QLatin1String(key), kindOf(node->value)));
        }
        return node ? node->elements : none;
    }

    void fail(int offset, const QString &cause)
    {
        if (m_mistake.cause.isEmpty()) {
            m_mistake = {offset, cause};
        }
    }

    const QString &m_file;
    const Catalogs &m_others;
    JsonMistake m_mistake;
};

// null when the file cannot be read
QByteArray contentOf(const QString &path, QString &cause)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        cause = CatalogText::tr("there is no such file");
        return {};
    }
    // a pipe would hold the reader up, a device might never end
    if (!info.isFile()) {
        cause = CatalogText::tr("it is not a file");
        return {};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        cause = file.errorString();
        return {};
    }
    // one more than allowed: a file may grow between the question and the reading
    QByteArray content = file.read(s_largestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        cause = file.errorString();
        return {};
    }
    if (content.size() > s_largestFile) {
        cause = CatalogText::tr("it is larger than %1 MiB").arg(s_largestFile / 1024 / 1024);
        return {};
    }
    return content;
}

} // namespace

std::optional<Catalog> readCatalog(const QString &path, const Catalogs &others, CatalogError &error)
{
    error = {};
    error.file = path;
    QByteArray content = contentOf(path, error.cause);
    if (!error.cause.isEmpty()) {
        return {};
    }
    if (content.startsWith("\xef\xbb\xbf")) {
        content.remove(0, 3); // some editors begin UTF-8 with this mark, which is no character
    }

    JsonMistake mistake;
    const JsonNode root = parseJson(content, mistake);
    Catalog catalog;
    if (mistake.cause.isEmpty()) {
        CatalogBuilder builder(path, others);
        catalog = builder.build(root);
        mistake = builder.mistake();
    }
    if (!mistake.cause.isEmpty()) {
        const TextPlace place = placeOf(content, mistake.offset);
        error.line = place.line;
        error.column = place.column;
        error.cause = mistake.cause;
        return {};
    }
    return catalog;
}

} // namespace Tavro::FieldHost
