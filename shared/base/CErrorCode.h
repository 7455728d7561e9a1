#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QMetaType>
#include <QObject>

namespace Tavro::Base {

/**
 * A packed error word, as CErrorCode takes it apart.
 *
 * The named values belong to the host application, which defines the enumeration with them
 * where it needs them; to this library it is an opaque 32-bit number.
 */
enum ErrorCode : quint32;

/**
 * An error as one 32-bit word that names its cause and the class that raised it.
 *
 * | bits  | field                                                     | reader        |
 * | ----- | --------------------------------------------------------- | ------------- |
 * | 0-7   | the cause, from the component's own error enumeration     | detailCode()  |
 * | 8-15  | the class of the module that raised it                    | componentId() |
 * | 16-23 | the library or subsystem; 0x0B for this library           | moduleId()    |
 * | 24-30 | zero in every word that this library makes                |               |
 * | 31    | domain flag                                               | domain()      |
 *
 * A value: any thread may use its own copy. QML reads the properties of a copy it was given;
 * there the word counts as a signed number, so `code.errorCode >>> 0` is the one to show.
 */
class OVO_SHARED_EXPORT CErrorCode
{
    Q_GADGET
    Q_PROPERTY(bool isNoError READ isNoError)
    Q_PROPERTY(Tavro::Base::ErrorCode errorCode READ errorCode)

public:
    /** No error: the word is 0. */
    CErrorCode();
    /** Holds @p code unchanged. Not explicit, so that a composed word is an error as it stands. */
    CErrorCode(unsigned int code);

    /** The whole word. */
    ErrorCode errorCode() const;

    /** Library or subsystem, 0 to 255. */
    quint8 moduleId() const;
    /** Class within the module, 0 to 255. */
    quint8 componentId() const;
    /** Cause within the component, 0 to 255; 0 is no error. */
    quint8 detailCode() const;
    /** The domain flag, 0 or 1. */
    quint8 domain() const;

    /** True when detailCode() is 0, whatever module and component the word carries. */
    bool isNoError() const;

private:
    quint32 m_code = 0;
};

} // namespace Tavro::Base

Q_DECLARE_METATYPE(Tavro::Base::ErrorCode)
Q_DECLARE_METATYPE(Tavro::Base::CErrorCode)
