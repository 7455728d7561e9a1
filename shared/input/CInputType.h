// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QObject>
#include <QVariant>

#include <memory>

namespace Tavro::Shared {

/**
 * Describes how one catalog column is edited: label, kind of data, limits, list of values, control.
 *
 * An interface. The host subclasses it, creates one descriptor for each column definition and
 * implements the pure virtual functions from that definition. Properties and invokable functions
 * call the virtual functions, so a subclass declares none of them again.
 *
 * GUI thread only. No function of this class blocks. The parent owns the descriptor; without a
 * parent its creator does.
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
    /** Kind of data of the column. The values 1 to 5 have data-type codes in the catalogs. */
    enum InputType {
        InputTypeInvalid = 0, /**< the column has no data-type code, or an unknown one */
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

    /** Kind of control that edits the column: the values of the property controlType. */
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

    /** Label of the field, in the user's language. */
    virtual QString caption() const = 0;
    /** Key of the column that the field writes to. */
    virtual QString boundColumn() const = 0;
    /** Unit shown with the value, such as "mm". Empty when the column has none. */
    virtual QString unit() const = 0;
    /** Format in which the value is shown. Empty when the template has none. */
    virtual QString displayFormat() const = 0;
    /** True when the field must not stay empty. */
    virtual bool mandatory() const = 0;
    /** True exactly when the column offers a list of values. */
    virtual bool hasList() const = 0;
    /** True when a value that is not in the list may be entered. */
    virtual bool editableList() const = 0;
    /** Kind of data: DataConverter::stringToDataType() of the column's data-type code. */
    virtual InputType inputType() const = 0;
    /** Longest text of the column, in characters. */
    virtual int maximumTextLength() const = 0;
    /** Kind of control: a value of BaseInputType. */
    virtual int controlType() const = 0;
    /** Smallest value of the column. */
    virtual QVariant minimumValue() const = 0;
    /** Largest value of the column. */
    virtual QVariant maximumValue() const = 0;
    /** Entries of the list, in the order in which they are shown. Empty without a list. */
    virtual QVariantList itemList() const = 0;
    /** Text shown for the entry at @p index. The host defines the result for other indexes. */
    Q_INVOKABLE virtual QString textFromListIndex(int index) const = 0;
    /** Value stored for the entry at @p index. The host defines the result for other indexes. */
    Q_INVOKABLE virtual QVariant valueFromListIndex(int index) const = 0;
    /**
     * Index of the entry whose stored value equals @p value. The host defines the result when there
     * is none.
     */
    Q_INVOKABLE virtual int listIndexFromValue(const QVariant &value) const = 0;
    /**
     * The text of the last setValuesToHide(). Default: empty. The host defines its content and its
     * format; this library does not read it.
     */
    Q_INVOKABLE virtual QString valuesToHide() const;
    /** Sets valuesToHide() to @p values, unchanged. Emits no signal. Not callable from QML. */
    virtual void setValuesToHide(QString values);

Q_SIGNALS:
    /** Emitted by the host's descriptor when itemList has changed. This class does not emit it. */
    void itemListChanged();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
