// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/catalog/JsonTree.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <algorithm>
#include <utility>

namespace Tavro::FieldHost {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isOfNumber(char c)
{
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

/**
 * Goes through a text that Qt's parser has understood, for the places that the parser does not
 * tell. What a text or number means is asked of the parser, one by one.
 */
class TreeBuilder
{
public:
    explicit TreeBuilder(const QByteArray &json)
        : m_json(json)
    {
    }

    JsonNode build()
    {
        skipBlanks();
        JsonNode node;
        node.offset = m_at;
        if (here() == '{') {
            node.value = QJsonObject();
            buildMembers(node.members);
        } else if (here() == '[') {
            node.value = QJsonArray();
            buildElements(node.elements);
        } else {
            node.value = takeScalar();
        }
        return node;
    }

private:
    void buildMembers(std::vector<JsonMember> &members)
    {
        while (hasNext('}')) {
            JsonMember member;
            member.keyOffset = m_at;
            member.key = takeScalar().toString();
            skipBlanks();
            ++m_at; // the colon
            member.node = build();
            members.push_back(std::move(member));
        }
    }

    void buildElements(std::vector<JsonNode> &elements)
    {
        while (hasNext(']')) {
            elements.push_back(build());
        }
    }

    // steps over the opening bracket or the comma; over the closing bracket, too, when it is there
    bool hasNext(char closing)
    {
        skipBlanks();
        if (here() == ',' || here() != closing) {
            ++m_at;
            skipBlanks();
        }
        if (here() != closing) {
            return true;
        }
        ++m_at;
        return false;
    }

    QJsonValue takeScalar()
    {
        const int begin = m_at;
        if (here() == '"') {
            for (++m_at; here() != '"'; ++m_at) {
                m_at += here() == '\\' ? 1 : 0;
            }
            ++m_at;
        } else {
            while (!isBlank(here()) && here() != ',' && here() != '}' && here() != ']') {
                ++m_at;
            }
        }
        const QByteArray alone = '[' + m_json.mid(begin, m_at - begin) + ']';
        return QJsonDocument::fromJson(alone).array().at(0);
    }

    void skipBlanks()
    {
        while (isBlank(here())) {
            ++m_at;
        }
    }

    char here() const { return m_json.at(m_at); }

    const QByteArray &m_json;
    int m_at = 0;
};

QString causeOf(QJsonParseError::ParseError error)
{
    switch (error) {
    case QJsonParseError::UnterminatedObject:
        return CatalogText::tr("expected a key in double quotes, \",\" or \"}\"");
    case QJsonParseError::MissingNameSeparator:
        return CatalogText::tr("expected \":\"");
    case QJsonParseError::UnterminatedArray:
    case QJsonParseError::MissingValueSeparator:
        return CatalogText::tr("expected \",\" or \"]\"");
    case QJsonParseError::IllegalValue:
        return CatalogText::tr("this is not a JSON value");
    case QJsonParseError::IllegalNumber:
        return CatalogText::tr("this is not a number, or too large a one");
    case QJsonParseError::IllegalEscapeSequence:
        return CatalogText::tr("invalid escape sequence");
    case QJsonParseError::IllegalUTF8String:
        return CatalogText::tr("this is not UTF-8");
    case QJsonParseError::MissingObject:
        return CatalogText::tr("something is missing before this");
    case QJsonParseError::DeepNesting:
        return CatalogText::tr("nested too deeply");
    case QJsonParseError::GarbageAtEnd:
        return CatalogText::tr("the catalog has ended before this");
    default:
        return CatalogText::tr("the file is not valid JSON");
    }
}

// The parser tells where it stopped reading: behind the byte that it could not use, with
// exceptions.
int offsetOf(const QJsonParseError &error, const QByteArray &json)
{
    switch (error.error) {
    case QJsonParseError::GarbageAtEnd:
    case QJsonParseError::IllegalUTF8String:
    case QJsonParseError::IllegalEscapeSequence:
        return error.offset;
    case QJsonParseError::IllegalNumber: {
        int begin = error.offset;
        while (begin > 0 && isOfNumber(json.at(begin - 1))) {
            --begin;
        }
        return begin;
    }
    default:
        return error.offset - 1;
    }
}

// blanks at the end are no text
int lengthOf(const QByteArray &json)
{
    int length = json.size();
    while (length > 0 && isBlank(json.at(length - 1))) {
        --length;
    }
    return length;
}

} // namespace

const JsonNode *JsonNode::member(const QString &key) const
{
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&key](const JsonMember &member) { return member.key == key; });
    return found == members.end() ? nullptr : &found->node;
}

JsonNode parseJson(const QByteArray &json, JsonMistake &mistake)
{
    mistake = {};
    // with a blank at its end, a text that is too short looks different from one that ends badly
    QJsonParseError error;
    QJsonDocument::fromJson(json + '\n', &error);
    if (error.error == QJsonParseError::NoError) {
        return TreeBuilder(json).build();
    }
    const int length = lengthOf(json);
    mistake.offset = offsetOf(error, json);
    mistake.cause = causeOf(error.error);
    if (mistake.offset >= length) {
        mistake.offset = length;
        mistake.cause = length == 0 ? CatalogText::tr("the file is empty")
                                    : CatalogText::tr("the file ends too early");
    }
    return {};
}

TextPlace placeOf(const QByteArray &text, int offset)
{
    const QByteArray before = text.left(offset);
    const int lineBegin = before.lastIndexOf('\n') + 1;
    const QString line = QString::fromUtf8(before.mid(lineBegin));
    return {before.count('\n') + 1, line.toUcs4().size() + 1};
}

} // namespace Tavro::FieldHost
