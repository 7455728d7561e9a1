// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/ClipInfoFile.h"
#include "tests/qml/screens/ScreenTest.h"
#include "tests/support/FileTree.h"

#include <QColor>
#include <QImage>

using namespace Tavro::Test;
using Tavro::FieldHost::ClipInfoFile;

namespace {

/** Adds a directory to record into, and what the files there hold. */
class RecordingScreenTest : public ScreenTest
{
    Q_OBJECT
    Q_PROPERTY(QString directory READ directory CONSTANT)

public:
    QString directory() const { return m_directory.path(); }

    Q_INVOKABLE void makeFile(const QString &name, const QString &content)
    {
        ::Test::makeFile(m_directory.filePath(name), content.toUtf8());
    }
    Q_INVOKABLE int samplesIn(const QString &name) const
    {
        return ClipInfoFile::read(m_directory.filePath(name)).samples.size();
    }
    /** How many pixels of a grabbed picture have that colour. */
    Q_INVOKABLE int pixelsOf(const QVariant &picture, const QColor &colour) const
    {
        const auto image = picture.value<QImage>();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y) == colour ? 1 : 0;
            }
        }
        return count;
    }

private:
    ::Test::TemporaryFolder m_directory;
};

} // namespace

int main(int argc, char *argv[])
{
    return runScreenTest(argc, argv, "tst_RecordingScreen",
                         []() -> ScreenTest * { return new RecordingScreenTest; });
}

#include "tst_RecordingScreen.moc"
