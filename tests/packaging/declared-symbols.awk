# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# After castxml.awk: the symbols that the library has to export, mangled, one a line. A constructor's
# parameters are left out: castxml does not mangle them.

# what stands between "_ZN" and the member's own name
function nested(scope,    own)
{
    if (nameOf[scope] == "::") {
        return ""
    }
    own = nameOf[scope]
    sub(/&lt;double&gt;/, "", own)
    return nested(scopeOf[scope]) length(own) own (isInstance(scope) ? "IdE" : "")
}

function isInstance(scope)
{
    return nameOf[scope] ~ /&lt;double&gt;$/
}

$1 ~ /^<(Constructor|Destructor|Function|Method|OperatorMethod|Variable)$/ {
    members[++count] = $0
}

END {
    for (i = 1; i <= count; ++i) {
        $0 = members[i]
        scope = value("context")
        if (!isOurs(value("file")) || value("artificial")) {
            continue
        }
        # Q_GADGET declares a function that nobody defines; constants outside of classes are each
        # source's own
        if (value("name") == "qt_check_for_QGADGET_macro" || ($1 == "<Variable" && !value("static"))) {
            continue
        }
        if (value("virtual") && !isPolymorphic[scope]++) {
            print "_ZTVN" nested(scope) "E"
            print "_ZTIN" nested(scope) "E"
            print "_ZTSN" nested(scope) "E"
        }
        # an instantiation that the library carries has all members, but none that is defaulted
        isElsewhere = isInstance(scope) ? /<Constructor.*\/>/ \
                                        : value("inline") || value("access") == "private"
        if (isElsewhere || value("pure_virtual")) {
            continue
        }
        if ($1 == "<Constructor") {
            print "_ZN" nested(scope) "C1"
            print "_ZN" nested(scope) "C2"
        } else if ($1 == "<Destructor") {
            print "_ZN" nested(scope) "D1Ev"
            print "_ZN" nested(scope) "D2Ev"
            if (value("virtual")) {
                print "_ZN" nested(scope) "D0Ev"
            }
        } else {
            print value("mangled")
        }
    }
}
