// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Has the clip information handler continue a file of arbitrary bytes, and holds the line that it
// appends against a second reading of the same bytes.

#include "fieldhost/services/FieldApplication.h"
#include "shared/clipinfo/ClipInfoHandler.h"
#include "shared/locale/CProjectLocaleData.h"
#include "tests/clipinfo/NextValue.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

// what the handler works in, for all inputs
struct Place
{
    Place()
        : application(argumentCount, arguments)
        , info(folder.filePath(QStringLiteral("clip.txt")))
    {
        Tavro::Shared::CProjectLocaleData::instance()->setUnitType(
            Tavro::Base::DistanceUnit::Meter);
    }

    int argumentCount = 1;
    char name[5] = "fuzz";
    char *arguments[2] = {name, nullptr};
    QCoreApplication application;
    Tavro::FieldHost::FieldApplication host;
    Tavro::Shared::ClipInfoHandler handler;
    QTemporaryDir folder; // removed at the end: it is a static object's
    QFile info;
};

void require(bool condition, const char *what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Place place;
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QFile &info = place.info;
    require(info.open(QIODevice::WriteOnly | QIODevice::Truncate)
                && info.write(content) == content.size(),
            "no file to work with");
    info.close();

    place.handler.setVideoIndexingFilePath(place.folder.filePath(QStringLiteral("clip.mp4")));
    require(place.handler.resume(info), "not resumed");
    require(place.handler.write(0, 0, 0, 0, 0), "no sample taken");
    require(place.handler.stop(), "not written");

    require(info.open(QIODevice::ReadOnly), "not readable");
    const QByteArray written = info.readAll();
    info.close();
    const std::string key = Test::nextKey({content.constData(), size});
    require(written == content + key.c_str() + "=0.000;0.000;0;0.000;0.000\n",
            "another number, or what was there has changed");
    return 0;
}
