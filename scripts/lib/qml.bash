# SPDX-FileCopyrightText: The OvoSharedBase contributors
# SPDX-License-Identifier: MIT

# shellcheck shell=bash
# Finds members of our QML types that do not exist. To be sourced, in the project's root.

# Qt 5.15's qmllint looks at the syntax alone. That of Qt 6 follows properties through bindings and
# JavaScript, but knows Qt 5's own types only in part: what it says of those is left out.
qmllint=/usr/lib/qt6/bin/qmllint

# our_type_lists: the lists that the build makes
our_type_lists()
{
    printf '%s\n' build/dev/qml/OvoSharedBase build/dev/fieldhost/qml/types/OvoFieldHost
}

# qml_type_lists DIRECTORY: Qt's lists and ours, as Qt 6 reads them
qml_type_lists()
{
    local output=$1 module
    rm --recursive --force "$output"
    mkdir --parents "$output"
    (cd "/usr/lib/$(gcc -print-multiarch)/qt5/qml" && find . \( -name qmldir -o -name '*.qmltypes' -o -name '*.qml' \) ! -name 'builtins*' \
        -exec cp --parents --target-directory "$OLDPWD/$output" {} +)
    while read -r module; do
        mkdir "$output/${module##*/}"
        cp "$module"/{qmldir,plugins.qmltypes} "$output/${module##*/}"
    done < <(our_type_lists)
    # revisions and dependencies are written in another way, and so are the names of texts
    find "$output" -name '*.qmltypes' -exec sed --in-place --regexp-extended \
        '/exportMetaObjectRevisions/d; /^ *dependencies:/d; s/type: "string"/type: "QString"/' {} +
    # QtQuick has QtQml's types
    find "$output" -name qmldir -exec sed --in-place 's/^depends QtQml .*/&\nimport QtQml/' {} +
}

# names_of_our_types: in C++ and in QML, one a line
names_of_our_types()
{
    our_type_lists | sed 's|$|/plugins.qmltypes|' | xargs cat \
        | sed --quiet --regexp-extended \
            's/^        name: "(Tavro::[^"]*)"/\1/p; s/.*exports: \["[A-Za-z]*\/([A-Za-z0-9]*) .*/\1/p'
}

# unlisted_screen_types: the types that the screens' program registers, and that the list lacks, or
# the other way round. Those of the module are compared by a test.
unlisted_screen_types()
{
    diff --label 'listed in fieldhost/qml/ScreenTypes.h' --label 'registered' --unified=0 \
        <(sed --quiet --regexp-extended 's/.*exports: \["OvoFieldHost\/(\w*) .*/\1/p' \
            build/dev/fieldhost/qml/types/OvoFieldHost/plugins.qmltypes | sort) \
        <(grep --recursive --no-filename --include='*.cpp' --only-matching --extended-regexp \
            '1, 0, *"\w+"' fieldhost/qml | sed 's/.*"\(.*\)"/\1/' | sort) || true
}

# misspelt_in LISTS FILE...: "file:line:column: what", for each member that does not exist; of a
# function or binding that has several, the first
misspelt_in()
{
    local lists=$1 names
    shift
    names=$(names_of_our_types | paste --serial --delimiters='|')
    [[ -n $names ]] || { echo 'no type lists'; return; }
    { "$qmllint" --bare -I "$lists" -I "/usr/lib/$(gcc -print-multiarch)/qt6/qml" "$@" 2>&1 || true; } \
        | sed --quiet --regexp-extended \
            -e "s/^Warning: (.*: Property \"[^\"]*\" not found on type \"($names)\")/\1/p; t" \
            -e '/^[^ ]*\.qml:[0-9]+:[0-9]+: /p' # syntax
}
