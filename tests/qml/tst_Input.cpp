// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/forms/ColumnInputType.h"
#include "host/CColumnDefinition.h"
#include "qml/OvoSharedBaseTypes.h"
#include "shared/input/CInputType.h"
#include "shared/input/TextValidator.h"
#include "shared/input/ValidationDoubleValidator.h"
#include "tests/input/CurrentLocale.h"

#include <QFile>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QtQuickTest>

#include <memory>

using Tavro::FieldHost::ColumnForm;
using Tavro::FieldHost::ColumnInputType;
using Tavro::Shared::CInputType;
using Tavro::Shared::CodeListItem;
using Tavro::Shared::TextValidator;
using Tavro::Shared::Validation::DoubleValidator;

namespace {

class MaterialColumn : public Tavro::Templates::CColumnDefinition
{
public:
    QString key() const override { return QStringLiteral("SEC_Material"); }
    QString unit() const override { return QString(); }
};

QList<CodeListItem> codeList(std::initializer_list<const char *> texts)
{
    QList<CodeListItem> list;
    for (const char *text : texts) {
        const QString word = QLatin1String(text);
        list += CodeListItem(word.left(2).toUpper(), word, QString());
    }
    return list;
}

ColumnForm materialForm()
{
    ColumnForm form;
    form.caption = QStringLiteral("Material");
    form.dataType = QStringLiteral("TXT");
    form.isMandatory = true;
    form.maximumTextLength = 2;
    form.minimumValue = 5;
    form.codeList = codeList({"Concrete", "Vitrified clay"});
    return form;
}

} // namespace

/** What screens get from their host. */
class Host : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Tavro::Shared::CInputType *material READ material CONSTANT)

public:
    CInputType *material() { return &m_material; }

    /** Another code list, as of another project. */
    Q_INVOKABLE void openAnotherProject() { m_material.setCodeList(codeList({"Steel"})); }
    Q_INVOKABLE void openTheFirstProject() { m_material.setCodeList(materialForm().codeList); }

    /** Makes that locale the current one. */
    Q_INVOKABLE void useLocale(const QString &name)
    {
        m_locale.reset();
        m_locale = std::make_unique<Test::CurrentLocale>(QLocale(name));
    }

    /** The toolkit's validator with both separators, for 0 to 10 and two decimals. */
    Q_INVOKABLE QValidator *makeDecimalValidator(QObject *parent)
    {
        return new DoubleValidator(0.0, 10.0, 2, parent);
    }

    /** Whether the rules accept the text. */
    Q_INVOKABLE bool passes(Tavro::Shared::TextValidator *rules, QString text,
                            bool rejectIntermediate)
    {
        return rules->validate(text, rejectIntermediate);
    }

private:
    std::unique_ptr<Test::CurrentLocale> m_locale;
    ColumnInputType m_material{MaterialColumn(), materialForm()};
};

/** Registers the types as a host does. */
class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *)
    {
        registerOvoSharedBaseTypes();
        qmlRegisterSingletonType<Host>("Ovo.Input", 1, 0, "Host",
                                       [](QQmlEngine *, QJSEngine *) -> QObject * {
                                           return new Host; // which the engine owns
                                       });
    }
};

int main(int argc, char *argv[])
{
    // Qt would make one, and leave it behind
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder.path()));
    Setup setup;
    return quick_test_main_with_setup(argc, argv, "tst_Input", QUICK_TEST_SOURCE_DIR, &setup);
}

#include "tst_Input.moc"
