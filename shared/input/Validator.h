#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QString>
#include <QValidator>

#include <memory>

namespace Tavro::Shared {

/**
 * One rule for an edited text: a verdict, and a hint that tells the user the rule.
 *
 * Rules are rarely used alone: TextValidator creates them by type, sets their properties from a
 * map of options and combines them. Single-threaded; nothing blocks and nothing throws.
 *
 * A host's own rule overrides validate() and updateHint(). A setter of such a rule sets
 * m_hintOutdated.
 */
class OVO_SHARED_EXPORT Validator : public QObject
{
    Q_OBJECT

public:
    /** A rule without a parent; belongs to the caller. */
    Validator();
    ~Validator() override;

    /**
     * Judges @p input: Invalid, Intermediate (may become acceptable by more typing) or Acceptable.
     * A rule may rewrite @p input. The rules of this library neither read nor change @p pos.
     */
    virtual QValidator::State validate(QString &input, int &pos) const = 0;

    /** Writes the text of the rule, as it is now, into m_hint: whole lines, or nothing. */
    virtual void updateHint() = 0;

    /**
     * The rule in words, each line ended by a line feed; empty for a rule that has nothing to
     * say. English, as the hosts show it. Made anew by each call.
     */
    QString hint();

protected:
    QString m_hint; /**< What hint() answers; written by updateHint(). */
    bool m_hintOutdated = true; /**< Whether hint() calls updateHint(). Nothing clears it. */

private:
    class Private; // empty: room for members that a later version needs

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
