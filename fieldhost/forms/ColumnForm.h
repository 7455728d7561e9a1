// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/input/CInputType.h"
#include "shared/input/CodeListItem.h"

#include <QList>
#include <QString>
#include <QVariant>

namespace Tavro::FieldHost {

/** How a column is edited, beyond what the catalog itself says of it. */
struct ColumnForm
{
    QString caption;
    QString dataType; // a code of catalogs: "TXT", "INT", "DEC", "BOL" or "DAT"
    bool isMandatory = false;
    QList<Shared::CodeListItem> codeList; // in the order in which it is shown
    bool isListEditable = false; // whether values outside of the list may be typed
    int maximumTextLength = 0; // 0: any
    QVariant minimumValue; // invalid: none
    QVariant maximumValue; // invalid: none
    QString displayFormat;
    /** Unknown: whatever suits the data type and the list. */
    Shared::CInputType::BaseInputType control = Shared::CInputType::Unknown;
};

} // namespace Tavro::FieldHost
