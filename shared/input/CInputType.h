#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QVariant>

#include <memory>

namespace Tavro::Shared {

/**
 * How one catalog column is edited: what a form asks before it builds the field.
 *
 * An interface: the host derives one concrete descriptor from each column definition and answers
 * the pure functions from it. QML reads everything through the properties and the callable
 * functions, which all end in these virtual functions.
 *
 * Belongs to the GUI thread; nothing blocks. Owned by its parent, or by whoever created it.
 */
class OVO_SHARED_EXPORT CInputType : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption CONSTANT)
    Q_PROPERTY(QString boundColumn READ boundColumn CONSTANT)
    Q_PROPERTY(QString unit READ unit CONSTANT)
    Q_PROPERTY(bool mandatory READ mandatory CONSTANT)
    Q_PROPERTY(bool hasList READ hasList CONSTANT)
    Q_PROPERTY(bool editableList READ editableList CONSTANT)
    Q_PROPERTY(InputType inputType READ inputType CONSTANT)
    Q_PROPERTY(int maximumTextLength READ maximumTextLength CONSTANT)
    Q_PROPERTY(QVariant minimumValue READ minimumValue CONSTANT)
    Q_PROPERTY(QVariant maximumValue READ maximumValue CONSTANT)
    Q_PROPERTY(QVariantList itemList READ itemList NOTIFY itemListChanged)
    Q_PROPERTY(QString displayFormat READ displayFormat CONSTANT)
    Q_PROPERTY(int controlType READ controlType CONSTANT)

public:
    /** What kind of data the column holds; the first six are the catalogs' data-type codes. */
    enum InputType {
        InputTypeInvalid = 0, /**< no code, or an unknown one */
        InputTypeText = 1, /**< "TXT" */
        InputTypeInteger = 2, /**< "INT" */
        InputTypeDecimal = 3, /**< "DEC" */
        InputTypeBoolean = 4, /**< "BOL" */
        InputTypeDate = 5, /**< "DAT" */
        InputTypeTime = 6, /**< a time of day */
        InputTypeAutocomplete = 7, /**< text, completed from what was entered before */
        InputTypeParticipant = 8, /**< one of the project's participants */
        InputTypeTextModal = 9, /**< text, edited in a dialog of its own */
    };
    Q_ENUM(InputType)

    /** Kind of control that edits the column: the values of controlType. */
    enum BaseInputType {
        Unknown = 0, /**< the template names no control, or one not listed here */
        TextBox = 1, /**< one line of text */
        MaskedTextBox = 2, /**< text in a fixed pattern */
        ComboBox = 3, /**< one entry of a list */
        NumericUpDn = 4, /**< number with steps; the catalogs spell it so */
        DatePicker = 5, /**< calendar date */
        TimePicker = 6, /**< time of day */
        CheckBox = 7, /**< yes or no */
        TextButton = 8, /**< text with a button beside it */
        ComboText = 9, /**< entry of a list, or free text */
        BitMask = 10, /**< several flags in one number */
        DirectoryPicker = 11, /**< path of a directory */
        FilePicker = 12, /**< path of a file */
        ColorPicker = 13, /**< color */
        FontPicker = 14, /**< font */
        SectionTitle = 15, /**< heading between fields, nothing to enter */
        PictureBox = 16, /**< picture */
        CommandButton = 17, /**< starts something, nothing to enter */
        MultipleChoice = 18, /**< several entries of a list */
        MultiLineTextBox = 19, /**< several lines of text */
    };
    Q_ENUM(BaseInputType)

    explicit CInputType(QObject *parent = nullptr);
    ~CInputType() override;

    // The order of the virtual functions is part of the binary interface.

    /** Text beside the field, in the user's language. */
    virtual QString caption() const = 0;
    /** Key of the column that the field writes to. */
    virtual QString boundColumn() const = 0;
    /** Unit text shown with the value; empty when the column has none. */
    virtual QString unit() const = 0;
    /** How the template has a value shown; empty when it says nothing. */
    virtual QString displayFormat() const = 0;
    /** Whether the field may not stay empty. */
    virtual bool mandatory() const = 0;
    /** True exactly when the column offers a list of values. */
    virtual bool hasList() const = 0;
    /** Whether a value that is not in the list may be entered, too. */
    virtual bool editableList() const = 0;
    /** Kind of data, from the column's code by DataConverter::stringToDataType(). */
    virtual InputType inputType() const = 0;
    /** Longest text that the column takes, in characters. */
    virtual int maximumTextLength() const = 0;
    /** A BaseInputType as plain number. */
    virtual int controlType() const = 0;
    /** Smallest value that the column takes. */
    virtual QVariant minimumValue() const = 0;
    /** Largest value that the column takes. */
    virtual QVariant maximumValue() const = 0;
    /** The entries of the list in the order in which they are shown; empty without a list. */
    virtual QVariantList itemList() const = 0;
    /** What is shown for the entry at @p index; outside the list the host decides. */
    Q_INVOKABLE virtual QString textFromListIndex(int index) const = 0;
    /** What is stored for the entry at @p index; outside the list the host decides. */
    Q_INVOKABLE virtual QVariant valueFromListIndex(int index) const = 0;
    /** Index of the entry whose stored value equals @p value; when none does the host decides. */
    Q_INVOKABLE virtual int listIndexFromValue(const QVariant &value) const = 0;
    /** What setValuesToHide() stored last, empty at first; content and form are the host's. */
    Q_INVOKABLE virtual QString valuesToHide() const;
    /** Stores @p values; emits nothing, and QML cannot call it. */
    virtual void setValuesToHide(QString values);

Q_SIGNALS:
    /** Emitted by the host's descriptor when itemList answers something new. */
    void itemListChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
