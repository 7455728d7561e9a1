// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/input/DateTimeValidator.h"
#include "shared/input/DoubleValidator.h"
#include "shared/input/IntValidator.h"
#include "shared/input/RegExpValidator.h"
#include "shared/input/StringLengthValidator.h"
#include "shared/input/Validator.h"
#include "tests/input/Declared.h"
#include "tests/input/VirtualSlot.h"

#include <QTest>

using namespace Test;
using namespace Tavro::Shared;

namespace {

/** A rule of a host's own, which takes upper case only. */
class UpperCaseValidator : public Validator
{
public:
    QValidator::State validate(QString &input, int &pos) const override
    {
        Q_UNUSED(pos)
        return input == input.toUpper() ? QValidator::Acceptable : QValidator::Intermediate;
    }

    void updateHint() override
    {
        ++updates;
        m_hint = QStringLiteral("Upper case, told %1 times\n").arg(updates);
    }

    void freeze() { m_hintOutdated = false; }
    bool isOutdated() const { return m_hintOutdated; }
    const QString &storedHint() const { return m_hint; }

    int updates = 0;
};

/** Whether the setter marks the hint as outdated, for a host's rule that keeps its hint. */
template<typename Rule, typename Value, typename... Arguments>
bool outdates(void (Rule::*setter)(Value), Arguments... arguments)
{
    struct KeepingRule : Rule
    {
        using Rule::m_hintOutdated;
        using Rule::Rule;
    } rule(arguments...);
    rule.m_hintOutdated = false;
    (rule.*setter)({});
    return rule.m_hintOutdated;
}

} // namespace

class tst_Validator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hintIsEmptyAndOutdatedAtFirst();
    void hintIsMadeAnewByEachCall();
    void hintThatIsNotOutdatedIsKept();
    void settersOutdateTheHint();
    void virtualFunctionsStandInTheirOrder();
    void metaObjectAddsNothing();
    void hasNoParent();
};

void tst_Validator::hintIsEmptyAndOutdatedAtFirst()
{
    const UpperCaseValidator validator;
    QCOMPARE(validator.storedHint(), QString());
    QVERIFY(validator.isOutdated());
    QCOMPARE(validator.updates, 0);
}

void tst_Validator::hintIsMadeAnewByEachCall()
{
    UpperCaseValidator validator;
    QCOMPARE(validator.hint(), QStringLiteral("Upper case, told 1 times\n"));
    QVERIFY(validator.isOutdated());
    QCOMPARE(validator.hint(), QStringLiteral("Upper case, told 2 times\n"));
}

void tst_Validator::hintThatIsNotOutdatedIsKept()
{
    UpperCaseValidator validator;
    validator.updateHint();
    validator.freeze();
    QCOMPARE(validator.hint(), QStringLiteral("Upper case, told 1 times\n"));
    QCOMPARE(validator.updates, 1);
}

void tst_Validator::settersOutdateTheHint()
{
    QVERIFY(outdates(&DateTimeValidator::setFormat));
    QVERIFY(outdates(&DoubleValidator::setBottom));
    QVERIFY(outdates(&DoubleValidator::setTop));
    QVERIFY(outdates(&DoubleValidator::setStep));
    QVERIFY(outdates(&IntValidator::setBottom));
    QVERIFY(outdates(&IntValidator::setTop));
    QVERIFY(outdates(&IntValidator::setStep));
    QVERIFY(outdates(&RegExpValidator::setPattern, false));
    QVERIFY(outdates(&StringLengthValidator::setBottom));
    QVERIFY(outdates(&StringLengthValidator::setTop));
}

void tst_Validator::virtualFunctionsStandInTheirOrder()
{
    QCOMPARE(virtualSlot(&Validator::validate), 1);
    QCOMPARE(virtualSlot(&Validator::updateHint), 2);
}

void tst_Validator::metaObjectAddsNothing()
{
    const QMetaObject &meta = Validator::staticMetaObject;
    QCOMPARE(meta.className(), "Tavro::Shared::Validator");
    QCOMPARE(meta.superClass()->className(), "QObject");
    QCOMPARE(declaredMethods(meta), QStringList());
    QCOMPARE(declaredProperties(meta), QStringList());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_Validator::hasNoParent()
{
    QCOMPARE(UpperCaseValidator().parent(), nullptr);
}

QTEST_APPLESS_MAIN(tst_Validator)

#include "tst_Validator.moc"
