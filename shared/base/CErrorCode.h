// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"

#include <QMetaType>
#include <QObject>

namespace Tavro::Base {

/**
 * A packed error word. CErrorCode unpacks it.
 *
 * The host defines the enumerators where it needs them. To this library the type is an opaque
 * 32-bit number.
 */
enum ErrorCode : quint32;

/**
 * An error as one 32-bit word: its cause, and the class and module that raised it.
 *
 * | bits  | field                                                     | reader        |
 * | ----- | --------------------------------------------------------- | ------------- |
 * | 0-7   | the cause, from the component's own error enumeration     | detailCode()  |
 * | 8-15  | the class that raised it, within its module               | componentId() |
 * | 16-23 | the library or subsystem; 0x0B for this library           | moduleId()    |
 * | 24-30 | zero in every word that this library makes                |               |
 * | 31    | domain flag                                               | domain()      |
 *
 * A plain value: each thread may use its own copy. QML reads the properties of the copy that it was
 * given. JavaScript takes errorCode for a signed number; `code.errorCode >>> 0` is the unsigned
 * one.
 */
class OVO_SHARED_EXPORT CErrorCode
{
    Q_GADGET
    Q_PROPERTY(bool isNoError READ isNoError)
    Q_PROPERTY(Tavro::Base::ErrorCode errorCode READ errorCode)

public:
    /** Creates the word 0, which is no error. */
    CErrorCode();
    /** Stores @p code unchanged. Not explicit, so that a packed word converts to CErrorCode. */
    CErrorCode(unsigned int code);

    /** The whole word. */
    ErrorCode errorCode() const;

    /** Library or subsystem that raised the error, 0 to 255. */
    quint8 moduleId() const;
    /** Class within the module that raised the error, 0 to 255. */
    quint8 componentId() const;
    /** Cause within the component, 0 to 255. 0 is no error. */
    quint8 detailCode() const;
    /** The domain flag, 0 or 1. */
    quint8 domain() const;

    /** True when detailCode() is 0. Module, component and domain have no influence. */
    bool isNoError() const;

private:
    quint32 m_code = 0;
};

} // namespace Tavro::Base

Q_DECLARE_METATYPE(Tavro::Base::ErrorCode)
Q_DECLARE_METATYPE(Tavro::Base::CErrorCode)
