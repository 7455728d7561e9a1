// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/forms/ColumnForm.h"
#include "shared/input/CInputType.h"
#include "shared/input/QmlStringListModel.h"

#include <QObject>

#include <memory>

namespace Tavro::Templates {
class CColumnDefinition;
}

namespace Tavro::Shared {
class TextValidator;
}

namespace Tavro::FieldHost {

/**
 * One field of a form on the screen: what its column allows, what is typed, and what the rules say
 * of it.
 *
 * A field that need not be filled in is right while it is empty, whatever its rules say: a rule for
 * numbers refuses an empty text.
 */
class FormField : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::CInputType *type READ type NOTIFY typeChanged)
    Q_PROPERTY(QString key READ key CONSTANT)
    Q_PROPERTY(QString caption READ caption NOTIFY typeChanged)
    Q_PROPERTY(QString hint READ hint NOTIFY typeChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int choice READ choice WRITE setChoice NOTIFY textChanged)
    Q_PROPERTY(Verdict verdict READ verdict NOTIFY verdictChanged)
    Q_PROPERTY(QString verdictText READ verdictText NOTIFY verdictChanged)
    Q_PROPERTY(bool finished READ isFinished NOTIFY verdictChanged)
    Q_PROPERTY(Tavro::Shared::QmlStringListModel *recent READ recent CONSTANT)

public:
    /** What the rules say. */
    enum Verdict {
        Valid,
        Intermediate, // empty, and must not stay so; of other texts the rules say yes or no
        Invalid,
    };
    Q_ENUM(Verdict)

    /** @p column must outlive the field. */
    FormField(const Templates::CColumnDefinition &column, const ColumnForm &form,
              QObject *parent = nullptr);
    ~FormField() override;

    /** Replaced, with the rules, by setMandatory() and describeAgain(). */
    Shared::CInputType *type() const { return m_type.get(); }
    /** Key of the column. */
    QString key() const;
    /** That of the form, or the key of a column that the form does not know. */
    QString caption() const;
    /** What the rules ask for, a line for each; empty without rules. */
    QString hint() const;

    const QString &text() const { return m_text; }
    /** The field is no longer finished. A text of the list is that choice. */
    void setText(const QString &text);
    /** Index in the list; -1 when the text is not in it. */
    int choice() const { return m_choice; }
    /** Takes the entry at that index, which finishes the field; an empty text for -1. */
    void setChoice(int choice);
    /** What is stored: the code of the choice, or the text. */
    QString value() const;

    Verdict verdict() const { return m_verdict; }
    /** The verdict as a sentence. Empty for a field that may be empty, or was not touched yet. */
    QString verdictText() const;
    /** Whether the user is done with it. */
    bool isFinished() const { return m_isFinished; }
    /** The user is done with it, so that what is not right is wrong. */
    Q_INVOKABLE void finish();

    /** Texts that were accepted before, the last one first. */
    Shared::QmlStringListModel *recent() { return &m_recent; }
    /** Puts the text before those of earlier records, once. */
    void remember();

    /** Whether the column must be filled in by its form, whatever the project is. */
    bool isMandatoryByForm() const { return m_isMandatoryByForm; }
    /** Whether it must be now. */
    void setMandatory(bool mandatory);
    /** Makes type and rules anew: their texts are those of the language of that time. */
    void describeAgain();

Q_SIGNALS:
    void typeChanged();
    void textChanged();
    void verdictChanged();

private:
    void judge();
    Verdict judged() const;

    const Templates::CColumnDefinition &m_column;
    ColumnForm m_form;
    const bool m_isMandatoryByForm;
    std::unique_ptr<Shared::CInputType> m_type;
    std::unique_ptr<Shared::TextValidator> m_rules;
    Shared::QmlStringListModel m_recent;
    QString m_text;
    int m_choice = -1;
    Verdict m_verdict = Valid;
    bool m_isFinished = false;
    bool m_isTouched = false;
};

} // namespace Tavro::FieldHost
