// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonValue>
#include <QString>

#include <vector>

namespace Tavro::FieldHost {

/** Translates what is said of a catalog. */
class CatalogText
{
    Q_DECLARE_TR_FUNCTIONS(Tavro::FieldHost::CatalogText)
};

struct JsonMember;

/** A JSON value that knows where in its text it stands. */
struct JsonNode
{
    QJsonValue value; // an object or array is empty here, what it holds is below
    int offset = 0; // of its first byte
    std::vector<JsonMember> members; // of an object, as they follow each other in the text
    std::vector<JsonNode> elements; // of an array

    /** The first member of that key; null when there is none. */
    const JsonNode *member(const QString &key) const;
};

/** A member of a JSON object. A key may be there twice, which QJsonObject would hide. */
struct JsonMember
{
    QString key;
    int keyOffset = 0;
    JsonNode node;
};

/** A mistake in a JSON text. */
struct JsonMistake
{
    int offset = 0; // of the byte to blame; that behind the last one when the text is too short
    QString cause; // empty when there is no mistake
};

/** Line and column of a place in a text, both from 1. */
struct TextPlace
{
    int line = 1;
    int column = 1; // in characters, not in bytes
};

/** Parses @p json, an array or object, with Qt's parser; @p mistake tells how that went. */
JsonNode parseJson(const QByteArray &json, JsonMistake &mistake);

/** Where the byte at @p offset stands in the UTF-8 text @p text. */
TextPlace placeOf(const QByteArray &text, int offset);

} // namespace Tavro::FieldHost
