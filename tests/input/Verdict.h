// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/input/Validator.h"

#include <QMetaType>
#include <QTest>

namespace Test {

/** What @p validator says of @p text. Fails the test if the position is touched. */
inline QValidator::State verdictOf(const Tavro::Shared::Validator &validator, QString text)
{
    int pos = 123;
    const QValidator::State verdict = validator.validate(text, pos);
    if (pos != 123) {
        QTest::qFail("the position was changed", __FILE__, __LINE__);
    }
    return verdict;
}

/** The log entry of a rule of class @p category that refused @p text. */
QString refusal(const char *category, const QString &text);

} // namespace Test

Q_DECLARE_METATYPE(QValidator::State)
