// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/qml/screens/ScreenTest.h"

#include "fieldhost/qml/Screens.h"
#include "fieldhost/qml/translations/Translations.h"
#include "fieldhost/services/FieldApplication.h"

#include <QApplication>
#include <QFile>
#include <QFontMetricsF>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtQuickTest>

#include <cstdio>
#include <memory>
#include <mutex>

namespace Tavro::Test {

namespace {

std::mutex s_mutex; // guards warnings(): any thread may warn
QtMessageHandler s_previous = nullptr;
bool s_hasWarned = false;

QStringList &warnings()
{
    static QStringList warnings;
    return warnings;
}

void recordMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isOfTesting =
        // the platform without a display, about windows in general
        message.contains(QLatin1String("propagateSizeHints"))
        // a change of the language evaluates the binding again from which the test runs
        || message.contains(QLatin1String("ScreenCase: Binding loop detected for property \"w"));
    if (isOfTesting) {
        return;
    }
    if (type != QtDebugMsg && type != QtInfoMsg) {
        const std::lock_guard<std::mutex> lock(s_mutex);
        warnings() += message;
        s_hasWarned = true;
    }
    if (s_previous) {
        s_previous(type, context, message);
    }
}

bool isText(const QQuickItem *item)
{
    return item->inherits("QQuickText") || item->inherits("QQuickTextInput");
}

bool isControl(const QQuickItem *item)
{
    return item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextInput")
        || item->inherits("QQuickComboBox");
}

bool isIcon(const QQuickItem *item)
{
    return item->property("font").value<QFont>().family() == QLatin1String("Material Icons");
}

// a list shows a part of what it has, and a flickable page, too
const QQuickItem *flickableAround(const QQuickItem *item)
{
    const QQuickItem *ancestor = item->parentItem();
    while (ancestor && !ancestor->inherits("QQuickFlickable")) {
        ancestor = ancestor->parentItem();
    }
    return ancestor;
}

QRectF sceneRect(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

// what is painted of a text; its item may be much wider, and what is typed is clipped
QRectF inkRect(const QQuickItem *item)
{
    if (item->inherits("QQuickTextInput")) {
        return sceneRect(item);
    }
    const QSizeF content(item->property("contentWidth").toReal(),
                         item->property("contentHeight").toReal());
    QRectF ink(QPointF(), content);
    ink.moveCenter(QRectF(0, 0, item->width(), item->height()).center());
    switch (item->property("effectiveHorizontalAlignment").toInt()) {
    case Qt::AlignLeft:
        ink.moveLeft(0);
        break;
    case Qt::AlignRight:
        ink.moveRight(item->width());
        break;
    default:
        break;
    }
    switch (item->property("verticalAlignment").toInt()) {
    case Qt::AlignTop:
        ink.moveTop(0);
        break;
    case Qt::AlignBottom:
        ink.moveBottom(item->height());
        break;
    default:
        break;
    }
    return item->mapRectToScene(ink);
}

QString textOf(const QQuickItem *item)
{
    return item->property("text").toString();
}

void collect(QQuickItem *item, QList<QQuickItem *> &items)
{
    if (!item->isVisible() || qFuzzyIsNull(item->opacity())) {
        return;
    }
    items += item;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        collect(child, items);
    }
}

QString named(const QQuickItem *item)
{
    const QString name = item->objectName().isEmpty()
        ? QString::fromLatin1(item->metaObject()->className())
        : item->objectName();
    return textOf(item).isEmpty() ? name : name + QStringLiteral(" \"%1\"").arg(textOf(item));
}

class Faults
{
public:
    explicit Faults(QQuickItem *root)
        : m_root(root)
        , m_window(QRectF(QPointF(), root->window()->contentItem()->size()))
    {
        collect(root, m_items);
    }

    QStringList find()
    {
        for (QQuickItem *item : qAsConst(m_items)) {
            if (isText(item) && !textOf(item).isEmpty()) {
                checkText(item);
                m_texts += item;
            }
            if (isControl(item)) {
                checkControl(item);
            }
        }
        checkOverlaps();
        checkTabOrder();
        return m_faults;
    }

private:
    void fault(const QQuickItem *item, const QString &what)
    {
        m_faults += named(item) + QLatin1Char(' ') + what;
    }

    void checkText(const QQuickItem *item)
    {
        const bool isInput = item->inherits("QQuickTextInput"); // scrolls by itself
        if (item->property("truncated").toBool()) {
            fault(item, QStringLiteral("is cut short"));
        }
        if (!isInput && item->property("contentWidth").toReal() > item->width() + 1) {
            fault(item, QStringLiteral("is wider than its place"));
        }
        if (!isInput && item->property("contentHeight").toReal() > item->height() + 1) {
            fault(item, QStringLiteral("is higher than its place"));
        }
        if (!isInput && !isIcon(item)) {
            checkWords(item);
        }
        if (isIcon(item)) {
            if (item->property("contentWidth").toReal()
                > 1.2 * QFontInfo(item->property("font").value<QFont>()).pixelSize()) {
                fault(item, QStringLiteral("is no icon of the font"));
            }
        } else if (item->property("font").value<QFont>().pointSizeF() < 14) {
            fault(item, QStringLiteral("is smaller than 14 points"));
        }
        const QRectF ink = inkRect(item);
        const bool scrolls = flickableAround(item);
        if (ink.left() < -1 || ink.right() > m_window.right() + 1
            || (!scrolls && (ink.top() < -1 || ink.bottom() > m_window.bottom() + 1))) {
            fault(item, QStringLiteral("is outside of the window"));
        }
    }

    // what has no place in a line goes on in the next; a path may
    void checkWords(const QQuickItem *item)
    {
        const QFontMetricsF metrics(item->property("font").value<QFont>());
        static const QRegularExpression gap(QStringLiteral("[\\s-]"));
        const QStringList words = textOf(item).split(gap);
        for (const QString &word : words) {
            if (!word.contains(QLatin1Char('/'))
                && metrics.horizontalAdvance(word) > item->width() + 1) {
                fault(item, QStringLiteral("breaks the word ") + word);
            }
        }
    }

    void checkControl(const QQuickItem *item)
    {
        if (item->height() < 44 || item->width() < 44) {
            fault(item, QStringLiteral("is too small to touch"));
        }
    }

    void checkOverlaps()
    {
        for (int i = 0; i < m_texts.size(); ++i) {
            for (int j = i + 1; j < m_texts.size(); ++j) {
                const QQuickItem *first = m_texts.at(i);
                const QQuickItem *second = m_texts.at(j);
                if (first->isAncestorOf(second) || second->isAncestorOf(first)
                    || flickableAround(first) != flickableAround(second)) {
                    continue; // a unit stands in its field; what scrolls is clipped
                }
                const QRectF common = inkRect(first) & inkRect(second);
                if (common.width() > 2 && common.height() > 2) {
                    fault(first, QStringLiteral("lies over ") + named(second));
                }
            }
        }
    }

    void checkTabOrder()
    {
        QList<QQuickItem *> reached;
        QQuickItem *item = m_root;
        do {
            item = item->nextItemInFocusChain(true);
            if (!item || reached.contains(item)) {
                break;
            }
            reached += item;
        } while (item != m_root);
        for (QQuickItem *control : qAsConst(m_items)) {
            if (isControl(control) && control->isEnabled() && !reached.contains(control)
                && !control->inherits("QQuickItemDelegate")) { // arrows go through a list
                fault(control, QStringLiteral("is not reached by the tab key"));
            }
        }
    }

    QQuickItem *const m_root;
    const QRectF m_window;
    QList<QQuickItem *> m_items;
    QList<QQuickItem *> m_texts;
    QStringList m_faults;
};

QQuickItem *findIn(QQuickItem *item, const QString &objectName)
{
    if (!item->isVisible()) {
        return nullptr;
    }
    if (item->objectName() == objectName) {
        return item;
    }
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = findIn(child, objectName)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

ScreenTest::ScreenTest() = default;

ScreenTest::~ScreenTest() = default;

QStringList ScreenTest::takeWarnings()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return std::exchange(warnings(), {});
}

void ScreenTest::watchMessages()
{
    const QtMessageHandler previous = qInstallMessageHandler(recordMessage);
    if (previous != recordMessage) {
        s_previous = previous;
    }
}

QStringList ScreenTest::layoutFaults(QQuickItem *root) const
{
    return Faults(root).find();
}

QQuickItem *ScreenTest::find(QQuickItem *root, const QString &objectName) const
{
    return findIn(root->window()->contentItem(), objectName);
}

QStringList ScreenTest::visibleTexts(QQuickItem *root) const
{
    QList<QQuickItem *> items;
    collect(root, items);
    QStringList texts;
    for (const QQuickItem *item : qAsConst(items)) {
        if (isText(item) && !isIcon(item) && !textOf(item).isEmpty()) {
            texts += textOf(item);
        }
    }
    return texts;
}

void ScreenTest::qmlEngineAvailable(QQmlEngine *engine)
{
    m_translations = std::make_unique<FieldHost::Translations>(*engine);
    engine->rootContext()->setContextProperty(QStringLiteral("screenTest"), this);
}

int runScreenTest(int argc, char **argv, const char *name, ScreenTest *(*makeTest)())
{
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeDirectory;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDirectory.path()));
    s_previous = qInstallMessageHandler(recordMessage);

    const QApplication application(argc, argv);
    FieldHost::FieldApplication host;
    FieldHost::registerScreens();
    int result = 0;
    {
        const std::unique_ptr<ScreenTest> test(makeTest());
        const QByteArray file = QByteArray(SCREEN_TEST_DIR "/") + name + ".qml";
        result = quick_test_main_with_setup(argc, argv, name, file.constData(), test.get());
    }
    qInstallMessageHandler(nullptr);
    if (result == 0 && s_hasWarned) {
        std::fputs("Messages as above must not be there.\n", stderr);
        return 1;
    }
    return result;
}

} // namespace Tavro::Test
