// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/forms/InspectionForm.h"

#include "fieldhost/catalog/CatalogFiles.h"
#include "fieldhost/jobs/ProjectCatalog.h"
#include "fieldhost/services/Printable.h"
#include "host/CColumnDefinition.h"
#include "host/CProgramView.h"
#include "shared/locale/GlobalLocaleData.h"
#include "shared/view3d/Mandatory3dDef.h"
#include "shared/view3d/ProjectTypeGlobal.h"

#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace Tavro::FieldHost {

namespace {

bool isMistake(const FormField *field)
{
    return field->isFinished() && field->verdict() != FormField::Valid;
}

} // namespace

InspectionForm::InspectionForm(QObject *parent)
    : QObject(parent)
{
    connect(&m_reading, &QFutureWatcher<Files>::finished, this, &InspectionForm::take);
    connect(Shared::GlobalLocaleData::instance(), &Shared::GlobalLocaleData::localeChanged, this,
            &InspectionForm::describeAgain);
    const auto *project = &ProjectTypeGlobal::instance();
    connect(project, &ProjectTypeGlobal::is3dChanged, this, &InspectionForm::markMandatory);
    connect(project, &ProjectTypeGlobal::is3dChanged, this, &InspectionForm::is3dChanged);
}

InspectionForm::~InspectionForm() = default;

void InspectionForm::open(const QString &catalog, const QString &form)
{
    m_isOpening = true;
    m_problem.clear();
    m_reading.setFuture(QtConcurrent::run(&InspectionForm::read, catalog, form));
    Q_EMIT openingChanged();
}

// in a thread of its own: the files may lie on a drive that answers late
InspectionForm::Files InspectionForm::read(const QString &catalog, const QString &form)
{
    Files files;
    CatalogFiles catalogs;
    CatalogError error;
    const CatalogDescriptor *descriptor = catalogs.load(catalog, error);
    if (!descriptor) {
        files.problem = sentenceOf(error);
        return files;
    }
    files.name = descriptor->name;
    files.catalogTemplate = catalogs.getTemplateFromCache(descriptor->templateId);
    if (!form.isEmpty()) {
        QString cause;
        const auto read = readForm(form, cause);
        if (!read) {
            files.problem =
                tr("The form \"%1\" cannot be used: %2.").arg(printable(form), printable(cause));
            return files;
        }
        files.form = *read;
    }
    return files;
}

void InspectionForm::take()
{
    const Files files = m_reading.result();
    m_isOpening = false;
    m_problem = files.problem;
    if (m_problem.isEmpty()) {
        // those who show the old fields let go of them before they are gone
        const auto oldTemplate = std::exchange(m_template, files.catalogTemplate);
        const auto oldFields = std::exchange(m_fields, {});
        m_name = files.name;
        m_view = 0;
        for (int i = 0; i < m_template->programViewCount(); ++i) {
            const Templates::CProgramView &view = *m_template->programView(i);
            for (int j = 0; j < view.columnCount(); ++j) {
                const Templates::CColumnDefinition &column = *view.column(j);
                auto &field = m_fields[column.key()];
                if (!field) {
                    field = std::make_unique<FormField>(column, files.form.value(column.key()));
                    connect(field.get(), &FormField::verdictChanged, this,
                            &InspectionForm::mistakesChanged);
                }
            }
        }
        markMandatory();
        Q_EMIT catalogChanged();
        Q_EMIT viewChanged();
        Q_EMIT mistakesChanged();
    }
    Q_EMIT openingChanged();
}

QStringList InspectionForm::views() const
{
    QStringList keys;
    for (int i = 0; m_template && i < m_template->programViewCount(); ++i) {
        keys += m_template->programView(i)->key();
    }
    return keys;
}

void InspectionForm::setView(int view)
{
    if (view != m_view && view >= 0 && view < views().size()) {
        m_view = view;
        markMandatory();
        Q_EMIT viewChanged();
        Q_EMIT mistakesChanged();
    }
}

QList<FormField *> InspectionForm::fieldsOfView() const
{
    QList<FormField *> fields;
    const auto *view = m_template ? m_template->programView(m_view) : nullptr;
    for (int i = 0; view && i < view->columnCount(); ++i) {
        FormField *field = m_fields.at(view->column(i)->key()).get();
        if (!fields.contains(field)) { // the first of several columns of one key counts
            fields += field;
        }
    }
    return fields;
}

QList<QObject *> InspectionForm::fields() const
{
    QList<QObject *> objects;
    const QList<FormField *> fields = fieldsOfView();
    std::copy(fields.begin(), fields.end(), std::back_inserter(objects));
    return objects;
}

int InspectionForm::mistakes() const
{
    const QList<FormField *> fields = fieldsOfView();
    return static_cast<int>(std::count_if(fields.begin(), fields.end(), isMistake));
}

int InspectionForm::firstMistake() const
{
    const QList<FormField *> fields = fieldsOfView();
    const auto first = std::find_if(fields.begin(), fields.end(), isMistake);
    return first == fields.end() ? -1 : static_cast<int>(first - fields.begin());
}

bool InspectionForm::accept()
{
    const QList<FormField *> fields = fieldsOfView();
    for (FormField *field : fields) {
        field->finish();
    }
    if (fields.isEmpty() || mistakes() > 0) {
        return false;
    }
    m_record.clear();
    for (FormField *field : fields) {
        m_record += QVariantMap{{QStringLiteral("key"), field->key()},
                                {QStringLiteral("value"), field->value()}};
        field->remember();
    }
    Q_EMIT recordChanged();
    return true;
}

bool InspectionForm::is3d() const
{
    return ProjectTypeGlobal::instance().is3d();
}

void InspectionForm::set3d(bool is3d)
{
    ProjectTypeGlobal::instance().setProjectType(is3d ? QStringLiteral("PRO3D") : QString());
}

void InspectionForm::describeAgain()
{
    for (const auto &field : m_fields) {
        field.second->describeAgain();
    }
}

void InspectionForm::markMandatory()
{
    const QString view = views().value(m_view);
    const QList<FormField *> fields = fieldsOfView();
    for (FormField *field : fields) {
        field->setMandatory(
            Mandatory3dDef::isMandatory(field->isMandatoryByForm(), field->key(), view));
    }
}

} // namespace Tavro::FieldHost
