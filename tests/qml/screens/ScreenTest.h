// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQuickItem>
#include <QStringList>

#include <memory>

class QQmlEngine;

namespace Tavro::FieldHost {
class Translations;
}

namespace Tavro::Test {

/**
 * What the QML of a screen's test reaches as `screenTest`: the messages that must not be there, and
 * what is wrong with the way a screen is laid out. ScreenCase.qml uses it for every test function.
 *
 * A test derives from it when its QML needs more of C++: Q_INVOKABLE functions and properties.
 */
class ScreenTest : public QObject
{
    Q_OBJECT

public:
    ScreenTest();
    ~ScreenTest() override;

    /** Messages of Qt, QML and the host since the last call; warnings, and what is worse. */
    Q_INVOKABLE QStringList takeWarnings();
    /** Qt Test installs a handler of its own when its first function begins; this one goes above.
     */
    Q_INVOKABLE void watchMessages();

    /**
     * What a user would object to in @p root and below, a sentence each: texts that are cut off,
     * outside of the window or one over the other; controls that are too small for a finger, or
     * that the tab key does not reach.
     */
    Q_INVOKABLE QStringList layoutFaults(QQuickItem *root) const;

    /** The visible item of that objectName in the window of @p root, popups included; or null. */
    Q_INVOKABLE QQuickItem *find(QQuickItem *root, const QString &objectName) const;

    /** The text that a user reads in @p root and below, from top to bottom. */
    Q_INVOKABLE QStringList visibleTexts(QQuickItem *root) const;

public Q_SLOTS:
    /** Called by Qt Quick Test. */
    void qmlEngineAvailable(QQmlEngine *engine);

private:
    std::unique_ptr<FieldHost::Translations> m_translations;
};

/**
 * The main function of a screen's test: a QApplication, the screens' types, and the QML file @p
 * name of this directory. Returns other than 0 when a test fails or anything was warned of. @p
 * makeTest makes the ScreenTest once there is an application.
 */
int runScreenTest(
    int argc, char **argv, const char *name,
    ScreenTest *(*makeTest)() = [] { return new ScreenTest; });

} // namespace Tavro::Test
