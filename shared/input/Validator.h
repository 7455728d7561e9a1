// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>
#include <QValidator>

#include <memory>

namespace Tavro::Shared {

/**
 * Base class of the rules for an edited text. A rule gives a verdict on the text and a hint that
 * describes the rule to the user.
 *
 * TextValidator creates rules by type, sets their properties from a map of options, combines them
 * and owns them. A rule that is created directly belongs to its creator.
 *
 * GUI thread only. No function blocks or throws. A refused text is a verdict, not an error.
 *
 * A host's own rule overrides validate() and updateHint(). Its setters set m_hintOutdated.
 */
class OVO_SHARED_EXPORT Validator : public QObject
{
    Q_OBJECT

public:
    /** Creates a rule without a parent. The caller owns it. */
    Validator();
    ~Validator() override;

    /**
     * Returns Acceptable, Intermediate (more typing may make @p input acceptable) or Invalid.
     * A rule may rewrite @p input. The rules of this library neither read nor change @p pos.
     */
    virtual QValidator::State validate(QString &input, int &pos) const = 0;

    /**
     * Sets m_hint to the description of the rule with its present properties: lines that each end
     * with a line feed, or the empty text.
     */
    virtual void updateHint() = 0;

    /**
     * Returns the description of the rule, in English; the hosts show it as it is. Each line ends
     * with a line feed. Empty for a rule without a description. Every call composes the text anew.
     */
    QString hint();

protected:
    QString m_hint; /**< The text that hint() returns; set by updateHint(). */
    bool m_hintOutdated = true; /**< True: hint() calls updateHint(). Never cleared. */

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
