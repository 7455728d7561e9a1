<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Tavro::Shared::DateTimeValidator</name>
    <message>
        <source>Date have to match format: %1
</source>
        <translation>Datum im Format %1
</translation>
    </message>
</context>
<context>
    <name>Tavro::Shared::DoubleValidator</name>
    <message>
        <source>Minimum value larger or equal %1
</source>
        <translation>Mindestens %L1
</translation>
    </message>
    <message>
        <source>Maximum value smaller or equal %1
</source>
        <translation>Höchstens %L1
</translation>
    </message>
    <message>
        <source>Value quantized with step size %1
</source>
        <translation>In Schritten von %L1
</translation>
    </message>
</context>
<context>
    <name>Tavro::Shared::IntValidator</name>
    <message>
        <source>Minimum value larger or equal %1
</source>
        <translation>Mindestens %1
</translation>
    </message>
    <message>
        <source>Maximum value smaller or equal %1
</source>
        <translation>Höchstens %1
</translation>
    </message>
    <message>
        <source>Value quantized with step size %1
</source>
        <translation>In Schritten von %1
</translation>
    </message>
</context>
<context>
    <name>Tavro::Shared::NotEmptyValidator</name>
    <message>
        <source>Expression can not be empty
</source>
        <translation>Eingabe erforderlich
</translation>
    </message>
</context>
<context>
    <name>Tavro::Shared::RegExpValidator</name>
    <message>
        <source>Expression have to match pattern: %1
</source>
        <translation>Eingabe nach dem Muster %1
</translation>
    </message>
</context>
<context>
    <name>Tavro::Shared::StringLengthValidator</name>
    <message>
        <source>Minimum length larger or equal %1
</source>
        <translation>Mindestens %1 Zeichen
</translation>
    </message>
    <message>
        <source>Maximum length smaller or equal %1
</source>
        <translation>Höchstens %1 Zeichen
</translation>
    </message>
</context>
</TS>
