// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/qml/forms/FormsTypes.h"

#include "fieldhost/qml/forms/FormField.h"
#include "fieldhost/qml/forms/InspectionForm.h"

#include <QtQml>

namespace Tavro::FieldHost {

void registerFormsTypes()
{
    const char uri[] = "OvoFieldHost";
    qmlRegisterType<InspectionForm>(uri, 1, 0, "InspectionForm");
    qmlRegisterUncreatableType<FormField>(uri, 1, 0, "FormField",
                                          QStringLiteral("belongs to an InspectionForm"));
}

} // namespace Tavro::FieldHost
