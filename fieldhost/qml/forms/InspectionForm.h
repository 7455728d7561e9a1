// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "fieldhost/catalog/CatalogDescriptor.h"
#include "fieldhost/forms/FormFile.h"
#include "fieldhost/qml/forms/FormField.h"
#include "host/CCatalogTemplate.h"

#include <QFutureWatcher>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>
#include <QVariantList>

#include <map>
#include <memory>

namespace Tavro::FieldHost {

/**
 * A form over the columns of a catalog: one record, filled in view by view.
 *
 * The columns of a view are its fields. A column that is in two views is the same field in both.
 * Whether a field is mandatory depends on the view and on the type of the project, which @ref is3d
 * changes for the whole application. Hints and formats are those of the current locale.
 */
class InspectionForm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool opening READ isOpening NOTIFY openingChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY openingChanged)
    Q_PROPERTY(QString name READ name NOTIFY catalogChanged)
    Q_PROPERTY(QStringList views READ views NOTIFY catalogChanged)
    Q_PROPERTY(int view READ view WRITE setView NOTIFY viewChanged)
    Q_PROPERTY(QList<QObject *> fields READ fields NOTIFY viewChanged)
    Q_PROPERTY(int firstMistake READ firstMistake NOTIFY mistakesChanged)
    Q_PROPERTY(int mistakes READ mistakes NOTIFY mistakesChanged)
    Q_PROPERTY(QVariantList record READ record NOTIFY recordChanged)
    Q_PROPERTY(bool is3d READ is3d WRITE set3d NOTIFY is3dChanged)

public:
    explicit InspectionForm(QObject *parent = nullptr);
    ~InspectionForm() override;

    /**
     * Opens the catalog file @p catalog with the form file @p form, which may be empty: then every
     * column takes any text. Both may be resources, as ":/catalogs/metric.json".
     *
     * Returns at once; the files are read in another thread. openingChanged() tells the end. A
     * catalog that cannot be used leaves @ref problem, and the form that is open.
     */
    Q_INVOKABLE void open(const QString &catalog, const QString &form);
    bool isOpening() const { return m_isOpening; }
    /** Why the last catalog or form cannot be used, as a sentence; empty when it can. */
    const QString &problem() const { return m_problem; }

    /** What people call the catalog; empty before one is open. */
    const QString &name() const { return m_name; }
    /** The keys of the views. */
    QStringList views() const;
    /** Index of the view that is shown. */
    int view() const { return m_view; }
    /** Nothing for an index that is not one of views(). */
    void setView(int view);
    /** The FormFields of the view, in its order. */
    QList<QObject *> fields() const;

    /** How many fields of the view are finished and not right. */
    int mistakes() const;
    /** The first of them; -1 when there is none. */
    int firstMistake() const;
    /**
     * Finishes all fields of the view. When all are right, makes the record of them, remembers
     * their texts, and returns true.
     */
    Q_INVOKABLE bool accept();
    /** What was accepted last: objects with "key" and "value". Empty before. */
    const QVariantList &record() const { return m_record; }

    /** ProjectTypeGlobal's. */
    bool is3d() const;
    void set3d(bool is3d);

Q_SIGNALS:
    void openingChanged();
    void catalogChanged();
    void viewChanged();
    void mistakesChanged();
    void recordChanged();
    void is3dChanged();

private:
    struct Files
    {
        QString name;
        QSharedPointer<Templates::CCatalogTemplate> catalogTemplate;
        Form form;
        QString problem;
    };

    static Files read(const QString &catalog, const QString &form);
    void take();
    void describeAgain();
    void markMandatory();
    QList<FormField *> fieldsOfView() const;

    QFutureWatcher<Files> m_reading;
    bool m_isOpening = false; // until its end is known here
    QString m_problem;
    QString m_name;
    QSharedPointer<Templates::CCatalogTemplate> m_template; // outlives the fields
    std::map<QString, std::unique_ptr<FormField>> m_fields; // by column
    int m_view = 0;
    QVariantList m_record;
};

} // namespace Tavro::FieldHost
