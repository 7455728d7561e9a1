#include "shared/locale/DataConverter.h"

#include <array>

namespace Tavro::Shared {

namespace {

struct DataType
{
    QLatin1String code;
    CInputType::InputType inputType;
};

constexpr std::array s_dataTypes = {
    DataType{QLatin1String("INT"), CInputType::InputTypeInteger},
    DataType{QLatin1String("DEC"), CInputType::InputTypeDecimal},
    DataType{QLatin1String("TXT"), CInputType::InputTypeText},
    DataType{QLatin1String("BOL"), CInputType::InputTypeBoolean},
    DataType{QLatin1String("DAT"), CInputType::InputTypeDate},
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
