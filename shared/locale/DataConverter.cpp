// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/locale/DataConverter.h"

#include <array>

namespace Tavro::Shared {

namespace {

struct DataType
{
    QStringView code;
    CInputType::InputType inputType;
};

constexpr std::array s_dataTypes = {
    DataType{u"INT", CInputType::InputTypeInteger}, DataType{u"DEC", CInputType::InputTypeDecimal},
    DataType{u"TXT", CInputType::InputTypeText},    DataType{u"BOL", CInputType::InputTypeBoolean},
    DataType{u"DAT", CInputType::InputTypeDate},
};

} // namespace

CInputType::InputType DataConverter::stringToDataType(const QStringRef &code)
{
    for (const DataType &dataType : s_dataTypes) {
        if (code == dataType.code) {
            return dataType.inputType;
        }
    }
    return CInputType::InputTypeInvalid;
}

} // namespace Tavro::Shared
