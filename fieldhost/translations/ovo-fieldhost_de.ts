<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ClockCard</name>
    <message>
        <source>There is no such day. Type it as 2026-11-21.</source>
        <translation>Diesen Tag gibt es nicht. Eingabe wie 2026-11-21.</translation>
    </message>
    <message>
        <source>There is no such time. Type it as 13:05 or 13:05:30.</source>
        <translation>Diese Uhrzeit gibt es nicht. Eingabe wie 13:05 oder 13:05:30.</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>New date</source>
        <translation>Neues Datum</translation>
    </message>
    <message>
        <source>New time, in UTC</source>
        <translation>Neue Uhrzeit, in UTC</translation>
    </message>
    <message>
        <source>Set the clock</source>
        <translation>Uhr stellen</translation>
    </message>
    <message>
        <source>Set the clock?</source>
        <translation>Uhr stellen?</translation>
    </message>
    <message>
        <source>This takes up to 10 seconds. The screen does not answer meanwhile.</source>
        <translation>Das dauert bis zu 10 Sekunden. So lange reagiert der Bildschirm nicht.</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Stellen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The clock is being set …</source>
        <translation>Die Uhr wird gestellt …</translation>
    </message>
</context>
<context>
    <name>DeletePage</name>
    <message>
        <source>Counting …</source>
        <translation>Wird gezählt …</translation>
    </message>
    <message>
        <source>Everything is deleted</source>
        <translation>Alles ist gelöscht</translation>
    </message>
    <message>
        <source>Not everything is deleted</source>
        <translation>Nicht alles ist gelöscht</translation>
    </message>
    <message>
        <source>The deletion was aborted</source>
        <translation>Das Löschen wurde abgebrochen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>To delete</source>
        <translation>Zum Löschen</translation>
    </message>
    <message>
        <source>Nothing is chosen.</source>
        <translation>Nichts ausgewählt.</translation>
    </message>
    <message>
        <source>A link; what it leads to stays</source>
        <translation>Eine Verknüpfung; ihr Ziel bleibt</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Choose a directory or file</source>
        <translation>Verzeichnis oder Datei wählen</translation>
    </message>
    <message>
        <source>Aborting</source>
        <translation>Wird abgebrochen</translation>
    </message>
    <message>
        <source>Deleting</source>
        <translation>Wird gelöscht</translation>
    </message>
    <message>
        <source>The directory that is being deleted is deleted as a whole.</source>
        <translation>Das begonnene Verzeichnis wird noch ganz gelöscht.</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Delete for good?</source>
        <translation>Endgültig löschen?</translation>
    </message>
    <message>
        <source>%1 in all. This cannot be undone.</source>
        <translation>Zusammen %1. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Keep everything</source>
        <translation>Alles behalten</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
</context>
<context>
    <name>DevicePage</name>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
</context>
<context>
    <name>DirectoryChooser</name>
    <message>
        <source>Choose this directory</source>
        <translation>Dieses Verzeichnis wählen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Persönlich</translation>
    </message>
    <message>
        <source>Drives</source>
        <translation>Laufwerke</translation>
    </message>
    <message>
        <source>This directory is empty.</source>
        <translation>Dieses Verzeichnis ist leer.</translation>
    </message>
    <message>
        <source>There are no directories in here.</source>
        <translation>Hier gibt es keine Verzeichnisse.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DriveCard</name>
    <message>
        <source>Clean</source>
        <translation>Sauber</translation>
    </message>
    <message>
        <source>Dirty: it was pulled too early</source>
        <translation>Nicht sauber: zu früh abgezogen</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>In Benutzung</translation>
    </message>
    <message>
        <source>Not known: reading it needs more rights</source>
        <translation>Unbekannt: zum Lesen fehlen Rechte</translation>
    </message>
    <message>
        <source>Has no mark</source>
        <translation>Keine Markierung</translation>
    </message>
    <message>
        <source>USB drives</source>
        <translation>USB-Laufwerke</translation>
    </message>
    <message>
        <source>There is no USB drive.</source>
        <translation>Kein USB-Laufwerk vorhanden.</translation>
    </message>
    <message>
        <source>Nothing on it is mounted.</source>
        <translation>Nichts davon ist eingehängt.</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>FAT of no known type</source>
        <translation>FAT unbekannter Art</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>To look at a drive, it is mounted for a moment. Do not pull it meanwhile.</source>
        <translation>Zum Nachsehen wird ein Laufwerk kurz eingehängt. Bitte so lange nicht abziehen.</translation>
    </message>
    <message>
        <source>Look at the drives</source>
        <translation>Laufwerke ansehen</translation>
    </message>
    <message>
        <source>Looking …</source>
        <translation>Wird nachgesehen …</translation>
    </message>
    <message>
        <source>The application works with exFAT, NTFS and the FAT volumes that it can mark.</source>
        <translation>Die Anwendung arbeitet mit exFAT, NTFS und den FAT-Laufwerken, die sie markieren kann.</translation>
    </message>
</context>
<context>
    <name>ExportPage</name>
    <message>
        <source>Getting the drive ready</source>
        <translation>Laufwerk wird vorbereitet</translation>
    </message>
    <message>
        <source>Looking through the project</source>
        <translation>Projekt wird durchgesehen</translation>
    </message>
    <message>
        <source>Waiting for your answer</source>
        <translation>Warten auf Ihre Antwort</translation>
    </message>
    <message>
        <source>Writing the last data to the drive</source>
        <translation>Letzte Daten werden auf das Laufwerk geschrieben</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Wird kopiert</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Comparing the copy with the project</source>
        <translation>Kopie wird mit dem Projekt verglichen</translation>
    </message>
    <message>
        <source>Aborting</source>
        <translation>Wird abgebrochen</translation>
    </message>
    <message>
        <source>Unmounting the drive</source>
        <translation>Laufwerk wird ausgehängt</translation>
    </message>
    <message>
        <source>The export is done</source>
        <translation>Der Export ist fertig</translation>
    </message>
    <message>
        <source>The export has failed</source>
        <translation>Der Export ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>The export was aborted</source>
        <translation>Der Export wurde abgebrochen</translation>
    </message>
    <message>
        <source>Nothing was copied</source>
        <translation>Nichts wurde kopiert</translation>
    </message>
    <message>
        <source>The drive is mounted and marked as in use. Leave it plugged in.</source>
        <translation>Das Laufwerk wird eingehängt und als benutzt markiert. Bitte eingesteckt lassen.</translation>
    </message>
    <message>
        <source>The data on its way is written first, then the copy is removed.</source>
        <translation>Begonnene Daten werden noch geschrieben, dann wird die Kopie entfernt.</translation>
    </message>
    <message>
        <source>This waits until no other program uses the drive. Leave it plugged in.</source>
        <translation>Das dauert, bis kein anderes Programm das Laufwerk benutzt. Bitte eingesteckt lassen.</translation>
    </message>
    <message>
        <source>The unfinished copy is removed. What was in %1 before stays as it was.</source>
        <translation>Die unfertige Kopie wird entfernt. Was schon in %1 war, bleibt unverändert.</translation>
    </message>
    <message>
        <source>%1 is removed, with everything that was copied.</source>
        <translation>%1 wird entfernt, mit allem, was schon kopiert ist.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Choose the directory to copy.</source>
        <translation>Wählen Sie ein Verzeichnis zum Kopieren.</translation>
    </message>
    <message>
        <source>Counting …</source>
        <translation>Wird gezählt …</translation>
    </message>
    <message>
        <source>Choose directory</source>
        <translation>Verzeichnis wählen</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Laufwerk</translation>
    </message>
    <message>
        <source>Choose where the copy goes.</source>
        <translation>Wählen Sie das Ziel der Kopie.</translation>
    </message>
    <message>
        <source>USB drive (%1)</source>
        <translation>USB-Laufwerk (%1)</translation>
    </message>
    <message>
        <source>%1 free</source>
        <translation>%1 frei</translation>
    </message>
    <message>
        <source>USB drive</source>
        <translation>USB-Laufwerk</translation>
    </message>
    <message>
        <source>Another directory</source>
        <translation>Anderes Verzeichnis</translation>
    </message>
    <message>
        <source>Read the copy back and compare it</source>
        <translation>Kopie zurücklesen und vergleichen</translation>
    </message>
    <message>
        <source>Compared</source>
        <translation>Verglichen</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Directory</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>%1 MiB/s</source>
        <translation>%1 MiB/s</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Restzeit</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>You can pull the drive now.</source>
        <translation>Sie können das Laufwerk jetzt abziehen.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>%1 holds files of the same name. They are replaced once all of the copy is whole.</source>
        <translation>%1 enthält gleichnamige Dateien. Sie werden ersetzt, sobald die Kopie vollständig ist.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Copy nothing</source>
        <translation>Nichts kopieren</translation>
    </message>
    <message>
        <source>Abort the export?</source>
        <translation>Export abbrechen?</translation>
    </message>
    <message>
        <source>Stay paused</source>
        <translation>Angehalten lassen</translation>
    </message>
    <message>
        <source>Go on copying</source>
        <translation>Weiter kopieren</translation>
    </message>
    <message>
        <source>The copy in %1 stays, but it is not compared to the end.</source>
        <translation>Die Kopie in %1 bleibt, wird aber nicht zu Ende verglichen.</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Replace 1 file?</source>
        <translation>1 Datei ersetzen?</translation>
    </message>
    <message>
        <source>Replace %1 files?</source>
        <translation>%1 Dateien ersetzen?</translation>
    </message>
</context>
<context>
    <name>FormEntry</name>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Before:</source>
        <translation>Zuletzt:</translation>
    </message>
    <message>
        <source>Not stated</source>
        <translation>Keine Angabe</translation>
    </message>
</context>
<context>
    <name>FormPage</name>
    <message>
        <source>Sewer inspection, 2D or 3D</source>
        <translation>Kanalinspektion, 2D oder 3D</translation>
    </message>
    <message>
        <source>Sewers, metric</source>
        <translation>Kanäle, metrisch</translation>
    </message>
    <message>
        <source>Another catalog</source>
        <translation>Anderer Katalog</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Inspektion</translation>
    </message>
    <message>
        <source>Catalog</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>3D project</source>
        <translation>3D-Projekt</translation>
    </message>
    <message>
        <source>File of the catalog</source>
        <translation>Datei des Katalogs</translation>
    </message>
    <message>
        <source>File of the form, if there is one</source>
        <translation>Datei des Formulars, falls vorhanden</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>The catalog is being read.</source>
        <translation>Der Katalog wird gelesen.</translation>
    </message>
    <message>
        <source>%1 The form &quot;%2&quot; stays open.</source>
        <translation>%1 Das Formular „%2“ bleibt offen.</translation>
    </message>
    <message>
        <source>Fields with a * must be filled in.</source>
        <translation>Felder mit * müssen ausgefüllt werden.</translation>
    </message>
    <message>
        <source>Accepted.</source>
        <translation>Übernommen.</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Not accepted. Fields to correct: %1</source>
        <translation>Nicht übernommen. Zu korrigieren: %1</translation>
    </message>
    <message>
        <source>All fields are correct now.</source>
        <translation>Jetzt stimmen alle Felder.</translation>
    </message>
    <message>
        <source>Last accepted</source>
        <translation>Zuletzt übernommen</translation>
    </message>
</context>
<context>
    <name>Formatted</name>
    <message>
        <source>How values look</source>
        <translation>So sehen Werte aus</translation>
    </message>
    <message>
        <source>Locale of the project: %1</source>
        <translation>Gebietsschema des Projekts: %1</translation>
    </message>
    <message>
        <source>Locale of the device: %1</source>
        <translation>Gebietsschema des Geräts: %1</translation>
    </message>
    <message>
        <source>12.5 metres</source>
        <translation>12,5 Meter</translation>
    </message>
    <message>
        <source>Distance counter at 1234.567</source>
        <translation>Meterzähler auf 1234,567</translation>
    </message>
    <message>
        <source>Pipe of 300 millimetres</source>
        <translation>Rohr mit 300 Millimetern</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Speed in</source>
        <translation>Tempo in</translation>
    </message>
    <message>
        <source>Temperature in</source>
        <translation>Temperatur in</translation>
    </message>
    <message>
        <source>Angle in</source>
        <translation>Winkel in</translation>
    </message>
    <message>
        <source>Pressure in</source>
        <translation>Druck in</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>Size of a file</source>
        <translation>Größe einer Datei</translation>
    </message>
    <message>
        <source>Type a distance</source>
        <translation>Länge eingeben</translation>
    </message>
    <message>
        <source>Read as %1.</source>
        <translation>Gelesen als %1.</translation>
    </message>
    <message>
        <source>Both point and comma are accepted.</source>
        <translation>Punkt und Komma gelten beide.</translation>
    </message>
</context>
<context>
    <name>LocalePage</name>
    <message>
        <source>Units and language</source>
        <translation>Einheiten und Sprache</translation>
    </message>
    <message>
        <source>Choose</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Locale of the device</source>
        <translation>Gebietsschema des Geräts</translation>
    </message>
    <message>
        <source>Catalog of the project</source>
        <translation>Katalog des Projekts</translation>
    </message>
    <message>
        <source>Another catalog</source>
        <translation>Anderer Katalog</translation>
    </message>
    <message>
        <source>Path of a file</source>
        <translation>Pfad einer Datei</translation>
    </message>
    <message>
        <source>Country of the project</source>
        <translation>Land des Projekts</translation>
    </message>
    <message>
        <source>Language of the project</source>
        <translation>Sprache des Projekts</translation>
    </message>
    <message>
        <source>Close the project</source>
        <translation>Projekt schließen</translation>
    </message>
    <message>
        <source>Columns of the catalog</source>
        <translation>Spalten des Katalogs</translation>
    </message>
    <message>
        <source>%1, from the catalog</source>
        <translation>%1, aus dem Katalog</translation>
    </message>
    <message>
        <source>%1, as distances</source>
        <translation>%1, wie Längen</translation>
    </message>
</context>
<context>
    <name>LogCard</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Errors and warnings</source>
        <translation>Fehler und Warnungen</translation>
    </message>
    <message>
        <source>Errors, warnings and information</source>
        <translation>Fehler, Warnungen, Hinweise</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Nothing has been logged.</source>
        <translation>Das Protokoll ist leer.</translation>
    </message>
    <message>
        <source>Clear the log</source>
        <translation>Protokoll leeren</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Inspection</source>
        <translation>Inspektion</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Units and language</source>
        <translation>Einheiten, Sprache</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Field host</source>
        <translation>Kanalinspektion</translation>
    </message>
</context>
<context>
    <name>OptionText</name>
    <message>
        <source>Nothing but options is expected.</source>
        <translation>Erwartet werden nur Optionen.</translation>
    </message>
    <message>
        <source>--size needs a width and a height, such as 1280x800.</source>
        <translation>--size erwartet Breite und Höhe, wie 1280x800.</translation>
    </message>
    <message>
        <source>--font-scale needs a number from 1 to 2.</source>
        <translation>--font-scale erwartet eine Zahl von 1 bis 2.</translation>
    </message>
    <message>
        <source>--page needs one of: export, delete, form, recording, locale, device.</source>
        <translation>--page erwartet eines von: export, delete, form, recording, locale, device.</translation>
    </message>
    <message>
        <source>--language needs a locale, such as de or de_CH.</source>
        <translation>--language erwartet ein Gebietsschema, wie de oder de_CH.</translation>
    </message>
    <message>
        <source>Try: ovo-fieldhost gui --help</source>
        <translation>Hilfe: ovo-fieldhost gui --help</translation>
    </message>
</context>
<context>
    <name>Plots</name>
    <message>
        <source>Distance in %1</source>
        <translation>Vorschub in %1</translation>
    </message>
    <message>
        <source>Pan in degrees</source>
        <translation>Schwenk in Grad</translation>
    </message>
    <message>
        <source>Tilt in degrees</source>
        <translation>Neigung in Grad</translation>
    </message>
    <message>
        <source>Time in seconds</source>
        <translation>Zeit in Sekunden</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Unbekannte Option: %1.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Unbekannte Optionen: %1.</translation>
    </message>
    <message>
        <source>Unexpected value after &apos;%1&apos;.</source>
        <translation>Unerwarteter Wert nach „%1“.</translation>
    </message>
    <message>
        <source>Missing value after &apos;%1&apos;.</source>
        <translation>Nach „%1“ fehlt der Wert.</translation>
    </message>
</context>
<context>
    <name>Rail</name>
    <message>
        <source>Light colours</source>
        <translation>Helle Farben</translation>
    </message>
    <message>
        <source>Dark colours</source>
        <translation>Dunkle Farben</translation>
    </message>
</context>
<context>
    <name>RecordingPage</name>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Video, beside which the file is written</source>
        <translation>Video, neben dem die Messdatei liegt</translation>
    </message>
    <message>
        <source>Time passes</source>
        <translation>Zeit läuft</translation>
    </message>
    <message>
        <source>10 times faster</source>
        <translation>10-mal schneller</translation>
    </message>
    <message>
        <source>50 times faster</source>
        <translation>50-mal schneller</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Enter an observation</source>
        <translation>Beobachtung eintragen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Stop writes the file. After a long recording the window waits for it.</source>
        <translation>Beim Beenden wird die Messdatei geschrieben. Nach langer Aufnahme wartet das Fenster darauf.</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Observations</source>
        <translation>Beobachtungen</translation>
    </message>
    <message>
        <source>Recorded trace</source>
        <translation>Aufgezeichneter Verlauf</translation>
    </message>
    <message>
        <source>Video, or its clip information file</source>
        <translation>Video oder seine Messdatei</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>The file is being read.</source>
        <translation>Die Datei wird gelesen.</translation>
    </message>
    <message>
        <source>in real time</source>
        <translation>in Echtzeit</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::CatalogText</name>
    <message>
        <source>null</source>
        <translation>null</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>a catalog</source>
        <translation>ein Katalog</translation>
    </message>
    <message>
        <source>the catalog id &quot;%1&quot; is taken by &quot;%2&quot;</source>
        <translation>die Katalogkennung „%1“ ist schon in „%2“ vergeben</translation>
    </message>
    <message>
        <source>a template</source>
        <translation>eine Vorlage</translation>
    </message>
    <message>
        <source>the template id &quot;%1&quot; is taken by &quot;%2&quot;</source>
        <translation>die Vorlagenkennung „%1“ ist schon in „%2“ vergeben</translation>
    </message>
    <message>
        <source>%1 is an object, this is %2</source>
        <translation>%1 ist ein Objekt, hier steht %2</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is there twice</source>
        <translation>der Schlüssel „%1“ kommt doppelt vor</translation>
    </message>
    <message>
        <source>%1 needs the key &quot;%2&quot;</source>
        <translation>%1 braucht den Schlüssel „%2“</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is not among those of %2: %3</source>
        <translation>den Schlüssel „%1“ hat %2 nicht; möglich sind: %3</translation>
    </message>
    <message>
        <source>&quot;format&quot; is a number, this is %1</source>
        <translation>„format“ ist eine Zahl, hier steht %1</translation>
    </message>
    <message>
        <source>this is format %1, and only format %2 is known</source>
        <translation>dies ist Format %1, bekannt ist nur Format %2</translation>
    </message>
    <message>
        <source>a view</source>
        <translation>eine Ansicht</translation>
    </message>
    <message>
        <source>a column</source>
        <translation>eine Spalte</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is empty</source>
        <translation>„%1“ ist leer</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a text, this is %2</source>
        <translation>„%1“ ist ein Text, hier steht %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a list, this is %2</source>
        <translation>„%1“ ist eine Liste, hier steht %2</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>die Datei gibt es nicht</translation>
    </message>
    <message>
        <source>it is not a file</source>
        <translation>es ist keine Datei</translation>
    </message>
    <message>
        <source>it is larger than %1 MiB</source>
        <translation>sie ist größer als %1 MiB</translation>
    </message>
    <message>
        <source>expected a key in double quotes, &quot;,&quot; or &quot;}&quot;</source>
        <translation>erwartet wird ein Schlüssel in Anführungszeichen, „,“ oder „}“</translation>
    </message>
    <message>
        <source>expected &quot;:&quot;</source>
        <translation>erwartet wird „:“</translation>
    </message>
    <message>
        <source>expected &quot;,&quot; or &quot;]&quot;</source>
        <translation>erwartet wird „,“ oder „]“</translation>
    </message>
    <message>
        <source>this is not a JSON value</source>
        <translation>dies ist kein JSON-Wert</translation>
    </message>
    <message>
        <source>this is not a number, or too large a one</source>
        <translation>dies ist keine Zahl, oder sie ist zu groß</translation>
    </message>
    <message>
        <source>invalid escape sequence</source>
        <translation>ungültige Escape-Sequenz</translation>
    </message>
    <message>
        <source>this is not UTF-8</source>
        <translation>dies ist kein UTF-8</translation>
    </message>
    <message>
        <source>something is missing before this</source>
        <translation>davor fehlt etwas</translation>
    </message>
    <message>
        <source>nested too deeply</source>
        <translation>zu tief verschachtelt</translation>
    </message>
    <message>
        <source>the catalog has ended before this</source>
        <translation>der Katalog ist hier schon zu Ende</translation>
    </message>
    <message>
        <source>the file is not valid JSON</source>
        <translation>die Datei ist kein gültiges JSON</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>the file ends too early</source>
        <translation>die Datei endet zu früh</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::ClipTrace</name>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 ist nicht lesbar: %2</translation>
    </message>
    <message>
        <source>1 sample</source>
        <translation>1 Messwert</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 Messwerte</translation>
    </message>
    <message>
        <source>1 recording</source>
        <translation>1 Aufnahme</translation>
    </message>
    <message>
        <source>%1 recordings</source>
        <translation>%1 Aufnahmen</translation>
    </message>
    <message>
        <source>Line %2 could not be read.</source>
        <translation>Zeile %2 war nicht lesbar.</translation>
    </message>
    <message>
        <source>%1 lines could not be read, the first is line %2.</source>
        <translation>%1 Zeilen waren nicht lesbar, die erste ist Zeile %2.</translation>
    </message>
    <message>
        <source>1 sample has the number of a later one, which was taken.</source>
        <translation>1 Messwert hat die Nummer eines späteren; der spätere gilt.</translation>
    </message>
    <message>
        <source>%1 samples have the number of a later one, which was taken.</source>
        <translation>%1 Messwerte haben die Nummer eines späteren; der spätere gilt.</translation>
    </message>
    <message>
        <source>There is no sample to draw.</source>
        <translation>Es gibt keinen Messwert zum Zeichnen.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::CommandText</name>
    <message>
        <source>Usage: ovo-fieldhost clock [show]
       ovo-fieldhost clock set-date DATE
       ovo-fieldhost clock set-time TIME

Shows the device&apos;s date and time, or sets the system clock and then the hardware clock. Setting
needs the commands &quot;date&quot; and &quot;hwclock&quot; and the rights of root. Both clocks are read afterwards,
and the message says which of them is set. A date that one of them cannot hold is refused: on many
32-bit systems time ends on 2038-01-19.

  DATE  As in 2026-11-21. The time of day stays what this command shows.
  TIME  As in 13:05 or 13:05:30. The date stays that of today in UTC.

The time shown is local time. A time that is set counts as UTC: where the two differ, the clock
moves by the difference.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  shown, or both clocks are set
  1  a clock is not set, or cannot hold the date; the message says which
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost clock [show]
        ovo-fieldhost clock set-date DATE
        ovo-fieldhost clock set-time TIME

Zeigt Datum und Uhrzeit des Geräts oder stellt die Systemuhr und danach die
Hardwareuhr. Zum Stellen sind die Befehle „date“ und „hwclock“ und die Rechte
von root nötig. Danach werden beide Uhren abgelesen, und die Meldung nennt die,
die gestellt sind. Ein Datum, das eine von ihnen nicht aufnehmen kann, wird
abgelehnt: Auf vielen 32-Bit-Systemen endet die Zeit am 2038-01-19.

  DATE  Wie 2026-11-21. Die Uhrzeit bleibt, wie dieser Befehl sie anzeigt.
  TIME  Wie 13:05 oder 13:05:30. Das Datum bleibt das heutige in UTC.

Angezeigt wird die Ortszeit. Eine gestellte Zeit gilt als UTC: Wo sich beide
unterscheiden, verstellt sich die Uhr um den Unterschied.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt, oder beide Uhren sind gestellt
  1  eine Uhr ist nicht gestellt oder kann das Datum nicht aufnehmen; die
     Meldung nennt sie
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>date  %1
time  %2</source>
        <translation>Datum    %1
Uhrzeit  %2</translation>
    </message>
    <message>
        <source>The calendar has no %1.</source>
        <translation>Den Tag %1 gibt es im Kalender nicht.</translation>
    </message>
    <message>
        <source>%1 is not a date such as 2026-11-21.</source>
        <translation>%1 ist kein Datum wie 2026-11-21.</translation>
    </message>
    <message>
        <source>%1 is not a time of day such as 13:05:30, from 00:00 to 23:59:59.</source>
        <translation>%1 ist keine Uhrzeit wie 13:05:30, von 00:00 bis 23:59:59.</translation>
    </message>
    <message>
        <source>Shows and sets the device&apos;s date and time.</source>
        <translation>Zeigt und stellt Datum und Uhrzeit des Geräts.</translation>
    </message>
    <message>
        <source>A %1 is missing.</source>
        <translation>%1 fehlt.</translation>
    </message>
    <message>
        <source>There is an argument too many: %1.</source>
        <translation>Ein Argument ist zu viel: %1.</translation>
    </message>
    <message>
        <source>A %1 is empty.</source>
        <translation>%1 ist leer.</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>&quot;%1 %2&quot; takes no %3.</source>
        <translation>&quot;%1 %2&quot; erwartet kein %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; knows no %2.%3</source>
        <translation>&quot;%1&quot; kennt %2 nicht.%3</translation>
    </message>
    <message>
        <source>Try: ovo-fieldhost %1 --help</source>
        <translation>Hilfe: ovo-fieldhost %1 --help</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost compare FILE FILE

Says whether two files have the same MD5 sum. Links are followed.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  they are equal
  1  they are different
  2  the command line was not understood
  3  one of them is not a file or cannot be read, or the answer could not be written; the message
     says which</source>
        <translation>Aufruf: ovo-fieldhost compare FILE FILE

Sagt, ob zwei Dateien dieselbe MD5-Summe haben. Verknüpfungen wird gefolgt.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  sie sind gleich
  1  sie sind verschieden
  2  die Befehlszeile wurde nicht verstanden
  3  eine ist keine Datei oder nicht lesbar, oder die Antwort ließ sich nicht
     ausgeben; die Meldung nennt den Grund</translation>
    </message>
    <message>
        <source>Equal: %1 and %2</source>
        <translation>Gleich: %1 und %2</translation>
    </message>
    <message>
        <source>Different: %1 and %2</source>
        <translation>Verschieden: %1 und %2</translation>
    </message>
    <message>
        <source>Says whether two files have the same content.</source>
        <translation>Sagt, ob zwei Dateien denselben Inhalt haben.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost convert VALUE FROM TO

Converts a length, as &quot;ovo-fieldhost convert 2.5 m ft&quot; does.

  VALUE  A number. Its decimal mark is &quot;.&quot; or &quot;,&quot;, so it cannot have group separators.
         A negative one may stand behind &quot;--&quot;.
  FROM   The unit of VALUE: m, ft, inch, mm or cm.
  TO     The unit of the result.

The result has all the digits that tell it from its neighbours.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  converted
  1  the result is out of range
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost convert VALUE FROM TO

Rechnet eine Länge um, zum Beispiel mit „ovo-fieldhost convert 2.5 m ft“.

  VALUE  Eine Zahl. Ihr Dezimalzeichen ist „.“ oder „,“, Tausender werden daher
         nicht getrennt. Eine negative darf hinter „--“ stehen.
  FROM   Die Einheit von VALUE: m, ft, inch, mm oder cm.
  TO     Die Einheit des Ergebnisses.

Das Ergebnis hat alle Ziffern, die es von seinen Nachbarn unterscheiden.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  umgerechnet
  1  das Ergebnis ist zu groß oder zu klein
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 ist zu groß.</translation>
    </message>
    <message>
        <source>%1 is not a number that can be converted.</source>
        <translation>%1 ist keine Zahl, die sich umrechnen lässt.</translation>
    </message>
    <message>
        <source>There is no unit %1. The units are %2.</source>
        <translation>Die Einheit %1 gibt es nicht. Möglich sind %2.</translation>
    </message>
    <message>
        <source>There is no unit %1. The nearest one is &quot;%2&quot;, of %3.</source>
        <translation>Die Einheit %1 gibt es nicht. Die ähnlichste ist &quot;%2&quot;, möglich sind %3.</translation>
    </message>
    <message>
        <source>The result is out of range.</source>
        <translation>Das Ergebnis ist zu groß oder zu klein.</translation>
    </message>
    <message>
        <source>Converts a length from one unit to another.</source>
        <translation>Rechnet eine Länge in eine andere Einheit um.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost countries

Lists the countries and languages that a catalog can name: countries by the sign that their
vehicles carry abroad, with their ISO 3166 codes, languages by their ISO 639-2 codes.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  listed
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost countries

Zeigt die Länder und Sprachen, die ein Katalog nennen kann: Länder nach dem
Kennzeichen, das ihre Fahrzeuge im Ausland tragen, mit ihrem Kürzel nach
ISO 3166, Sprachen nach ihrem Kürzel in ISO 639-2.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Lists the countries and languages that catalogs name.</source>
        <translation>Zeigt die Länder und Sprachen, die Kataloge nennen.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost delete [--yes] PATH...

Deletes each PATH: a directory with all that is in it, hidden entries too; a file; a link, but not
what it points to. Asks before it begins.

Options:
  --yes       Does not ask. Needed where no terminal is there to answer.
  -h, --help  Shows this text.

On a terminal, q or Ctrl-C aborts. The directory that is being deleted is still deleted as a whole;
the paths after it stay.

Exit codes:
  0  everything is deleted, and that is on the device
  1  failed: the message names what is still there, and the cause
  2  the command line was not understood, or --yes is missing
  3  nothing deleted: a PATH is missing, or must not be deleted
  6  aborted, or the answer was not yes</source>
        <translation>Aufruf: ovo-fieldhost delete [--yes] PATH...

Löscht jeden PATH: ein Verzeichnis mit allem, was darin ist, auch Verstecktem;
eine Datei; eine Verknüpfung, aber nicht ihr Ziel. Fragt vorher nach.

Optionen:
  --yes       Fragt nicht nach. Nötig, wo kein Terminal zum Antworten da ist.
  -h, --help  Zeigt diesen Text.

Auf einem Terminal brechen q und Strg-C ab. Das begonnene Verzeichnis wird noch
ganz gelöscht; was danach käme, bleibt.

Rückgabewerte:
  0  alles ist gelöscht, und das steht auf dem Gerät
  1  fehlgeschlagen: die Meldung nennt, was noch da ist, und den Grund
  2  die Befehlszeile wurde nicht verstanden, oder --yes fehlt
  3  nichts gelöscht: einen PATH gibt es nicht, oder er darf nicht gelöscht
     werden
  6  abgebrochen, oder die Antwort war nicht ja</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>link</source>
        <translation>Verknüpfung</translation>
    </message>
    <message>
        <source>directory of %1</source>
        <translation>Verzeichnis mit %1</translation>
    </message>
    <message>
        <source>To delete: %1 (%2)</source>
        <translation>Zum Löschen: %1 (%2)</translation>
    </message>
    <message>
        <source>Aborted: %1 of %2 not deleted.</source>
        <translation>Abgebrochen: %1 von %2 nicht gelöscht.</translation>
    </message>
    <message>
        <source>Failed: %1 of %2 not deleted.</source>
        <translation>Fehlgeschlagen: %1 von %2 nicht gelöscht.</translation>
    </message>
    <message>
        <source>Nothing was deleted.</source>
        <translation>Nichts wurde gelöscht.</translation>
    </message>
    <message>
        <source>Deleted: %1</source>
        <translation>Gelöscht: %1</translation>
    </message>
    <message>
        <source>There is no terminal to ask on, and --yes is missing: nothing was deleted.</source>
        <translation>Es gibt kein Terminal zum Nachfragen, und --yes fehlt: Nichts wurde gelöscht.</translation>
    </message>
    <message>
        <source>Delete? y deletes, any other key does not</source>
        <translation>Löschen? y löscht, jede andere Taste nicht</translation>
    </message>
    <message>
        <source>Deletes directories and files, with progress.</source>
        <translation>Löscht Verzeichnisse und Dateien, mit Fortschritt.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost export [options] SOURCE... DESTINATION

Copies every SOURCE into the directory DESTINATION, chunk by chunk, each flushed to the device
before the next one. A drive pulled out keeps the files that were whole by then; the one in flight
may stay there, cut off, under its name.

  SOURCE       A directory or file is copied to DESTINATION/&lt;its name&gt;. A directory that is written
               with &quot;/&quot; at the end, or as &quot;.&quot; or &quot;..&quot;, stands for its contents, which are copied
               into DESTINATION itself.
  DESTINATION  A directory. It is created when it does not exist, and otherwise must be empty.

A DESTINATION at or below /media/usbdrive is on the USB drive. The drive is mounted and marked as
in use before the copy, unmounted and marked clean after it, however the copy ends.

Links are followed. Hidden entries, links that lead nowhere, pipes, sockets and devices are left
out, and counted. Names are taken as UTF-8.

Options:
  --into-existing  Allows a DESTINATION that holds something. Where a copy would land on what is
                   there, it is made in a hidden directory beside it first, and takes its place,
                   replacing files of the same name, when all of it is whole. Until then an
                   abort or a failure leaves everything there as it was. A power cut leaves each
                   file old or new. The directory of an export that was killed is removed by the
                   next one.
  --verify         Reads every copy back from the device, in its place, and compares it with its
                   source. One that differs fails the export; what was copied is removed, except
                   for copies that have replaced files.
  -h, --help       Shows this text.

On a terminal, p pauses and resumes, q or Ctrl-C aborts. An abort removes the copy whole.

Exit codes:
  0  everything is copied, and on the device
  1  failed: a file was not copied, or its copy differs, or the drive was taken away; the message
     names it and the cause
  2  the command line was not understood
  3  nothing copied: a SOURCE is missing, or no whole copy of it is possible
  4  nothing copied: DESTINATION is refused
  5  nothing copied: DESTINATION has not enough free space
  6  aborted; the copy was removed</source>
        <translation>Aufruf: ovo-fieldhost export [Optionen] SOURCE... DESTINATION

Kopiert jede SOURCE in das Verzeichnis DESTINATION, Block für Block, jeder auf
das Gerät geschrieben, bevor der nächste beginnt. Ein abgezogenes Laufwerk
behält die Dateien, die bis dahin vollständig waren; die begonnene kann unter
ihrem Namen abgeschnitten zurückbleiben.

  SOURCE       Ein Verzeichnis oder eine Datei wird nach DESTINATION/&lt;Name&gt;
               kopiert. Ein Verzeichnis, das mit „/“ endet, oder „.“ und „..“
               stehen für ihren Inhalt, der direkt in DESTINATION kopiert wird.
  DESTINATION  Ein Verzeichnis. Es wird angelegt, wenn es fehlt, und muss sonst
               leer sein.

Eine DESTINATION in oder unter /media/usbdrive liegt auf dem USB-Laufwerk. Es
wird vor der Kopie eingehängt und als benutzt markiert, danach ausgehängt und
als sauber markiert, wie die Kopie auch endet.

Verknüpfungen wird gefolgt. Verstecktes, Verknüpfungen ins Leere, Pipes,
Sockets und Geräte werden ausgelassen und gezählt. Namen gelten als UTF-8.

Optionen:
  --into-existing  Erlaubt eine DESTINATION, in der schon etwas ist. Wo eine
                   Kopie auf Vorhandenes träfe, entsteht sie erst in einem
                   versteckten Verzeichnis daneben und kommt an ihren Platz,
                   sobald sie vollständig ist; dabei ersetzt sie gleichnamige
                   Dateien. Bis dahin lässt ein Abbruch oder Fehler alles, wie
                   es war. Ein Stromausfall lässt jede Datei alt oder neu. Das
                   Verzeichnis eines gewaltsam beendeten Exports entfernt der
                   nächste.
  --verify         Liest jede Kopie an ihrem Platz vom Gerät zurück und
                   vergleicht sie mit ihrer Quelle. Weicht eine ab, schlägt der
                   Export fehl; was kopiert war, wird entfernt, außer Kopien,
                   die Dateien ersetzt haben.
  -h, --help       Zeigt diesen Text.

Auf einem Terminal hält p an und setzt fort, q und Strg-C brechen ab. Ein
Abbruch entfernt die ganze Kopie.

Rückgabewerte:
  0  alles ist kopiert und auf dem Gerät
  1  fehlgeschlagen: eine Datei wurde nicht kopiert, oder ihre Kopie weicht ab,
     oder das Laufwerk wurde entfernt; die Meldung nennt sie und den Grund
  2  die Befehlszeile wurde nicht verstanden
  3  nichts kopiert: eine SOURCE fehlt oder lässt sich nicht vollständig
     kopieren
  4  nichts kopiert: DESTINATION wird abgelehnt
  5  nichts kopiert: in DESTINATION ist zu wenig Platz frei
  6  abgebrochen; die Kopie wurde entfernt</translation>
    </message>
    <message>
        <source>Copying %1 (%2) from %3 to %4</source>
        <translation>Kopiert wird: %1 (%2) von %3 nach %4</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>  replaces %1 there, once all of the copy is whole</source>
        <translation>  ersetzt dort %1, sobald die Kopie vollständig ist</translation>
    </message>
    <message>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <source>Aborting, once the data on its way is written</source>
        <translation>Abbruch, sobald die begonnenen Daten geschrieben sind</translation>
    </message>
    <message>
        <source>paused, p resumes</source>
        <translation>angehalten, p setzt fort</translation>
    </message>
    <message>
        <source>verifying</source>
        <translation>Prüfung</translation>
    </message>
    <message>
        <source>Keys: p pauses and resumes, q aborts</source>
        <translation>Tasten: p hält an und setzt fort, q bricht ab</translation>
    </message>
    <message>
        <source>Unmounting the USB drive, as soon as nobody uses it; Ctrl-C leaves it mounted.</source>
        <translation>Das USB-Laufwerk wird ausgehängt, sobald niemand es benutzt; mit Strg-C bleibt es eingehängt.</translation>
    </message>
    <message>
        <source>Aborted before anything was copied.</source>
        <translation>Abgebrochen, bevor etwas kopiert wurde.</translation>
    </message>
    <message>
        <source>Copies directories and files durably, with progress, pause and abort.</source>
        <translation>Kopiert Verzeichnisse und Dateien dauerhaft, mit Fortschritt.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost free PATH

Prints how much the user can still write on the volume that holds PATH.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  3  there is no such PATH</source>
        <translation>Aufruf: ovo-fieldhost free PATH

Zeigt, wie viel Sie noch auf den Datenträger schreiben können, auf dem PATH
liegt.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  2  die Befehlszeile wurde nicht verstanden
  3  diesen PATH gibt es nicht</translation>
    </message>
    <message>
        <source>There is no volume that holds %1.</source>
        <translation>Es gibt keinen Datenträger mit %1.</translation>
    </message>
    <message>
        <source>%1 (%2 bytes) free: %3</source>
        <translation>%1 (%2 Byte) frei: %3</translation>
    </message>
    <message>
        <source>Says how much space is left on a volume.</source>
        <translation>Sagt, wie viel Platz auf einem Datenträger frei ist.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost gui [options]

Shows the screens: export and deletion, an inspection, a recording, units and language, the device.
They are a program of their own, ovo-fieldhost-gui, which needs Qt Quick and a display. Without a
window system, set QT_QPA_PLATFORM, to &quot;eglfs&quot; or &quot;linuxfb&quot; for example.

Options:
  --page NAME          The screen to begin with: export, delete, form, recording, locale or device.
  --dark               Begins with dark colours.
  --language LOCALE    The device&apos;s language, such as de or de_CH; without it, the environment&apos;s.
  --font-scale FACTOR  Makes fonts larger, and what is touched with them: 1 to 2.
  --size WIDTHxHEIGHT  Size of the window in pixels; without it, 1280x800.
  -h, --help           Shows this text.

Exit codes:
  0  the window was closed
  1  failed: the screens are not installed, or there is no display; the message says which
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost gui [Optionen]

Zeigt die Bildschirme: Export und Löschen, eine Inspektion, eine Aufnahme,
Einheiten und Sprache, das Gerät. Sie sind ein eigenes Programm,
ovo-fieldhost-gui, das Qt Quick und eine Anzeige braucht. Ohne Fenstersystem
setzen Sie QT_QPA_PLATFORM, etwa auf „eglfs“ oder „linuxfb“.

Optionen:
  --page NAME          Der erste Bildschirm: export, delete, form, recording,
                       locale oder device.
  --dark               Beginnt mit dunklen Farben.
  --language LOCALE    Die Sprache des Geräts, wie de oder de_CH; sonst die der
                       Umgebung.
  --font-scale FACTOR  Macht Schriften größer, und was man damit berührt: 1 bis
                       2.
  --size WIDTHxHEIGHT  Größe des Fensters in Pixeln; sonst 1280x800.
  -h, --help           Zeigt diesen Text.

Rückgabewerte:
  0  das Fenster wurde geschlossen
  1  fehlgeschlagen: die Bildschirme sind nicht installiert, oder es gibt keine
     Anzeige; die Meldung nennt den Grund
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>The screens are not installed: there is no program ovo-fieldhost-gui. They are built with the option OVO_BUILD_SCREENS of CMake.</source>
        <translation>Die Bildschirme sind nicht installiert: Es gibt kein Programm ovo-fieldhost-gui. Sie werden mit der Option OVO_BUILD_SCREENS von CMake gebaut.</translation>
    </message>
    <message>
        <source>There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set. Without a window system, set QT_QPA_PLATFORM, to &quot;eglfs&quot; or &quot;linuxfb&quot; for example.</source>
        <translation>Es gibt keine Anzeige: Weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt. Ohne Fenstersystem setzen Sie QT_QPA_PLATFORM, etwa auf „eglfs“ oder „linuxfb“.</translation>
    </message>
    <message>
        <source>%1 cannot be started (%2).</source>
        <translation>%1 lässt sich nicht starten (%2).</translation>
    </message>
    <message>
        <source>Shows the screens.</source>
        <translation>Zeigt die Bildschirme.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost locale [--catalog FILE] [--country CODE] [--language CODE]
                            [--device LOCALE]

Shows how a project shows distances, speeds, temperatures, dates and sizes, and in which units the
columns of its catalog are.

A project is open when a catalog, a country or a language is given; its locale then counts, else
that of the device.

Options:
  --catalog FILE   The project&apos;s catalog; docs/catalog.md describes the file.
  --country CODE   The project&apos;s country, such as CH; without it, that of the catalog.
  --language CODE  The project&apos;s language, such as DEU; without it, that of the catalog.
  --device LOCALE  The device&apos;s locale, such as de_CH; without it, that of the environment.
  -h, --help       Shows this text.

&quot;ovo-fieldhost countries&quot; lists the codes of countries and languages.

Exit codes:
  0  shown
  1  the catalog cannot be used; the message names file, place and cause
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost locale [--catalog FILE] [--country CODE]
                             [--language CODE] [--device LOCALE]

Zeigt, wie ein Projekt Längen, Geschwindigkeiten, Temperaturen, Daten und Größen
anzeigt, und in welchen Einheiten die Spalten seines Katalogs sind.

Ein Projekt ist offen, wenn ein Katalog, ein Land oder eine Sprache angegeben
ist; dann gilt sein Gebietsschema, sonst das des Geräts.

Optionen:
  --catalog FILE   Der Katalog des Projekts; docs/catalog.md beschreibt die
                   Datei.
  --country CODE   Das Land des Projekts, wie CH; sonst das des Katalogs.
  --language CODE  Die Sprache des Projekts, wie DEU; sonst die des Katalogs.
  --device LOCALE  Das Gebietsschema des Geräts, wie de_CH; sonst das der
                   Umgebung.
  -h, --help       Zeigt diesen Text.

„ovo-fieldhost countries“ zeigt die Kürzel der Länder und Sprachen.

Rückgabewerte:
  0  angezeigt
  1  der Katalog ist nicht brauchbar; die Meldung nennt Datei, Stelle und Grund
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source> The nearest one is &quot;%1&quot; (%2).</source>
        <translation> Ähnlich ist &quot;%1&quot; (%2).</translation>
    </message>
    <message>
        <source>not given</source>
        <translation>nicht angegeben</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>The catalog&apos;s country code %1 is not known.%2</source>
        <translation>Das Länderkürzel %1 des Katalogs ist unbekannt.%2</translation>
    </message>
    <message>
        <source>The catalog&apos;s language code %1 is not known.%2</source>
        <translation>Das Sprachkürzel %1 des Katalogs ist unbekannt.%2</translation>
    </message>
    <message>
        <source>The catalog&apos;s unit %1 is not among &quot;m&quot;, &quot;ft&quot; and &quot;inch&quot;, so the locale decides.</source>
        <translation>Die Einheit %1 des Katalogs ist weder „m“ noch „ft“ oder „inch“; das Gebietsschema entscheidet.</translation>
    </message>
    <message>
        <source>Catalog</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>Locale</source>
        <translation>Gebietsschema</translation>
    </message>
    <message>
        <source>%1, of the project</source>
        <translation>%1, vom Projekt</translation>
    </message>
    <message>
        <source>%1, of the device</source>
        <translation>%1, vom Gerät</translation>
    </message>
    <message>
        <source>Distances</source>
        <translation>Längen</translation>
    </message>
    <message>
        <source>in %1, as the catalog has it</source>
        <translation>in %1, wie im Katalog</translation>
    </message>
    <message>
        <source>in %1, as the locale has it</source>
        <translation>in %1, wie im Gebietsschema</translation>
    </message>
    <message>
        <source>, and shown as %1</source>
        <translation>, angezeigt als %1</translation>
    </message>
    <message>
        <source>There is no country code %1.%2</source>
        <translation>Das Länderkürzel %1 gibt es nicht.%2</translation>
    </message>
    <message>
        <source>There is no language code %1.%2</source>
        <translation>Das Sprachkürzel %1 gibt es nicht.%2</translation>
    </message>
    <message>
        <source>There is no locale %1.</source>
        <translation>Das Gebietsschema %1 gibt es nicht.</translation>
    </message>
    <message>
        <source> The nearest one is &quot;%1&quot;.</source>
        <translation> Ähnlich ist &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Shows how a project shows numbers, dates and units.</source>
        <translation>Zeigt, wie ein Projekt Zahlen, Daten und Einheiten zeigt.</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Shown as</source>
        <translation>Angezeigt als</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Distance, short</source>
        <translation>Länge, kurz</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>Whole number</source>
        <translation>Ganze Zahl</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>24 hours</source>
        <translation>24 Stunden</translation>
    </message>
    <message>
        <source>AM and PM</source>
        <translation>AM und PM</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Spalte</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Herkunft</translation>
    </message>
    <message>
        <source>the catalog</source>
        <translation>aus dem Katalog</translation>
    </message>
    <message>
        <source>distances</source>
        <translation>wie Längen</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost COMMAND ...

Commands:</source>
        <translation>Aufruf: ovo-fieldhost COMMAND ...

Befehle:</translation>
    </message>
    <message>
        <source>Options:
  -h, --help     Shows this text; after a COMMAND, that of the command with its exit codes.
  -v, --version  Shows the version.

&quot;ovo-fieldhost help COMMAND&quot; shows the text of a command, too.

A command that has done its work ends with 1 when what it says cannot be written.</source>
        <translation>Optionen:
  -h, --help     Zeigt diesen Text; nach einem COMMAND den des Befehls mit
                 seinen Rückgabewerten.
  -v, --version  Zeigt die Version.

Auch „ovo-fieldhost help COMMAND“ zeigt den Text eines Befehls.

Ein Befehl, der seine Arbeit getan hat, endet mit 1, wenn sich seine Ausgabe
nicht schreiben lässt.</translation>
    </message>
    <message>
        <source>There is no command %1.%2
Try: ovo-fieldhost --help</source>
        <translation>Den Befehl %1 gibt es nicht.%2
Hilfe: ovo-fieldhost --help</translation>
    </message>
    <message>
        <source>A COMMAND is missing.</source>
        <translation>COMMAND fehlt.</translation>
    </message>
    <message>
        <source>The output could not be written (%1).</source>
        <translation>Die Ausgabe ließ sich nicht schreiben (%1).</translation>
    </message>
    <message>
        <source>%1 is not valid UTF-8. A file or directory of this name can be used once it is renamed.</source>
        <translation>%1 ist kein gültiges UTF-8. Eine Datei oder ein Verzeichnis dieses Namens ist erst nach dem Umbenennen brauchbar.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost name --dir D --ext E [--prefix P]

Prints the path of a file that does not exist yet in the directory D. Its name is the date and time,
or P, and a number. Nothing is created.

Options:
  --dir D      The directory.
  --ext E      The extension, with or without its point; &quot;&quot; for none.
  --prefix P   Used instead of date and time. Characters that a drive does not accept become &quot;_&quot;.
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood
  4  D is not a directory, or the names in it cannot be read</source>
        <translation>Aufruf: ovo-fieldhost name --dir D --ext E [--prefix P]

Zeigt den Pfad einer Datei, die es im Verzeichnis D noch nicht gibt. Ihr Name
besteht aus Datum und Uhrzeit, oder aus P, und einer Nummer. Angelegt wird
nichts.

Optionen:
  --dir D      Das Verzeichnis.
  --ext E      Die Endung, mit oder ohne Punkt; &quot;&quot; für keine.
  --prefix P   Statt Datum und Uhrzeit. Zeichen, die ein Laufwerk nicht annimmt,
               werden zu „_“.
  -h, --help   Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  2  die Befehlszeile wurde nicht verstanden
  4  D ist kein Verzeichnis, oder die Namen darin sind nicht lesbar</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost safe-name TEXT

Prints TEXT as a file name that any removable drive accepts.

Options:
  -h, --help   Shows this text.

Exit codes:
  0  done
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost safe-name TEXT

Zeigt TEXT als Dateinamen, den jedes Wechsellaufwerk annimmt.

Optionen:
  -h, --help   Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>--%1 is missing.</source>
        <translation>--%1 fehlt.</translation>
    </message>
    <message>
        <source>%1 is not a directory.</source>
        <translation>%1 ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>Which names are taken in %1 cannot be read (%2).</source>
        <translation>Die in %1 vergebenen Namen sind nicht lesbar (%2).</translation>
    </message>
    <message>
        <source>A TEXT is empty.</source>
        <translation>TEXT ist leer.</translation>
    </message>
    <message>
        <source>Finds a name that no file in a directory has.</source>
        <translation>Findet einen in einem Verzeichnis noch freien Dateinamen.</translation>
    </message>
    <message>
        <source>Makes a text a name that any drive takes.</source>
        <translation>Macht aus einem Text einen Namen, den jedes Laufwerk annimmt.</translation>
    </message>
    <message>
        <source> The nearest one is %1.</source>
        <translation> Ähnlich ist %1.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 left</source>
        <translation>noch %1</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost projection [1|2|3]

Shows the well-known texts of the map&apos;s projection, WGS 84 Web Mercator (EPSG:3857). With a
number, that text alone, as other programs read it:

  1  the default of the map layers, in ESRI&apos;s spelling behind the prefix &quot;WKT:&quot;
  2  ESRI&apos;s WGS 1984 Web Mercator (Auxiliary Sphere)
  3  the EPSG registry&apos;s, in lines

Options:
  -h, --help  Shows this text.

Exit codes:
  0  shown
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost projection [1|2|3]

Zeigt die Well-Known-Texte zur Projektion der Karte, WGS 84 Web Mercator
(EPSG:3857). Mit einer Zahl nur diesen Text, so wie andere Programme ihn lesen:

  1  die Vorgabe der Kartenebenen, in der Schreibweise von ESRI nach „WKT:“
  2  WGS 1984 Web Mercator (Auxiliary Sphere) von ESRI
  3  den Text des EPSG-Registers, in Zeilen

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>1 character</source>
        <translation>1 Zeichen</translation>
    </message>
    <message>
        <source>%1 characters</source>
        <translation>%1 Zeichen</translation>
    </message>
    <message>
        <source>There is no projection %1, only 1, 2 and 3.</source>
        <translation>Die Projektion %1 gibt es nicht, nur 1, 2 und 3.</translation>
    </message>
    <message>
        <source>Shows the well-known texts of the map&apos;s projection.</source>
        <translation>Zeigt die Well-Known-Texte zur Projektion der Karte.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost record [options] CLIP --duration SECONDS

Lets the simulated crawler drive through a pipe, look around every ten seconds and record CLIP.
Writes the clip information file that belongs to the video: when and with what it was made, and
distance, pan and tilt over time. The video itself is not made.

  CLIP  Path of the video. Its clip information file is in the same directory. It has the name of
        the video up to the first dot, and &quot;.txt&quot;. An existing one is continued.

Options:
  --duration SECONDS    Length of the video.
  --speed FACTOR        Lets the time pass that many times faster; 1 without it.
  --pause-at SECONDS    Pauses the recording there for two seconds. May be given several times.
  --observe-at SECONDS  Enters an observation there. May be given several times.
  --unit UNIT           Unit of the project: m (without it) or ft.
  -h, --help            Shows this text.

Ctrl-C ends the recording early; what was recorded up to then is written.

Exit codes:
  0  recorded, and the file is written
  1  failed: the file was not written
  2  the command line was not understood
  4  nothing recorded: the file cannot lie where it should
  6  ended early; what was recorded is written</source>
        <translation>Aufruf: ovo-fieldhost record [Optionen] CLIP --duration SECONDS

Lässt den simulierten Fahrwagen durch ein Rohr fahren, alle zehn Sekunden
umherschauen und CLIP aufnehmen. Schreibt die Messdatei zum Video: wann und
womit es entstand, und Vorschub, Schwenk und Neigung über der Zeit. Das Video
selbst entsteht nicht.

  CLIP  Pfad des Videos. Die Messdatei liegt im selben Verzeichnis. Sie heißt
        wie das Video bis zum ersten Punkt, und „.txt“. Eine vorhandene wird
        fortgesetzt.

Optionen:
  --duration SECONDS    Länge des Videos.
  --speed FACTOR        Lässt die Zeit so viel schneller vergehen; sonst 1.
  --pause-at SECONDS    Hält die Aufnahme dort zwei Sekunden an. Mehrfach
                        erlaubt.
  --observe-at SECONDS  Trägt dort eine Beobachtung ein. Mehrfach erlaubt.
  --unit UNIT           Einheit des Projekts: m (Vorgabe) oder ft.
  -h, --help            Zeigt diesen Text.

Strg-C beendet die Aufnahme vorzeitig; was bis dahin aufgenommen ist, wird
geschrieben.

Rückgabewerte:
  0  aufgenommen, und die Datei ist geschrieben
  1  fehlgeschlagen: die Datei wurde nicht geschrieben
  2  die Befehlszeile wurde nicht verstanden
  4  nichts aufgenommen: die Datei kann nicht an ihrem Platz liegen
  6  vorzeitig beendet; was aufgenommen ist, ist geschrieben</translation>
    </message>
    <message>
        <source>--%1 %2 is above %3, the most that is possible.</source>
        <translation>--%1 %2 ist mehr als %3, der höchste mögliche Wert.</translation>
    </message>
    <message>
        <source>--%1 %2 is not a number above 0.</source>
        <translation>--%1 %2 ist keine Zahl über 0.</translation>
    </message>
    <message>
        <source>--%1 %2 is not a time within the video.</source>
        <translation>--%1 %2 ist keine Zeit innerhalb des Videos.</translation>
    </message>
    <message>
        <source>--%1 %2 is neither m nor ft.</source>
        <translation>--%1 %2 ist weder m noch ft.</translation>
    </message>
    <message>
        <source>%1  %2 of %3  %4 %  %5  pan %6°  tilt %7°</source>
        <translation>%1  %2 von %3  %4 %  %5  Schwenk %L6°  Neigung %L7°</translation>
    </message>
    <message>
        <source>paused   </source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>recording</source>
        <translation>Aufnahme  </translation>
    </message>
    <message>
        <source>%1 was not written as it should be: %2</source>
        <translation>%1 wurde nicht richtig geschrieben: %2</translation>
    </message>
    <message>
        <source>Ended after %1 of video, %2 in %3</source>
        <translation>Beendet nach %1 Video, %2 in %3</translation>
    </message>
    <message>
        <source>Recorded %1 of video, %2 in %3</source>
        <translation>Aufgenommen: %1 Video, %2 in %3</translation>
    </message>
    <message>
        <source>1 sample</source>
        <translation>1 Messwert</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 Messwerte</translation>
    </message>
    <message>
        <source>Continues %1 after %2</source>
        <translation>Fortsetzung von %1, bisher %2</translation>
    </message>
    <message>
        <source>--duration is missing.</source>
        <translation>--duration fehlt.</translation>
    </message>
    <message>
        <source>Records the clip information of a simulated drive through a pipe.</source>
        <translation>Schreibt die Messdatei einer simulierten Fahrt durch ein Rohr.</translation>
    </message>
    <message>
        <source>There is no rule %1.%2</source>
        <translation>Die Regel %1 gibt es nicht.%2</translation>
    </message>
    <message>
        <source>The rule %1 has no options.</source>
        <translation>Die Regel %1 hat keine Optionen.</translation>
    </message>
    <message>
        <source>The rule %1 has no option %2.%3</source>
        <translation>Die Regel %1 hat keine Option %2.%3</translation>
    </message>
    <message>
        <source>The option %1 lacks its value: %1=...</source>
        <translation>Der Option %1 fehlt ihr Wert: %1=...</translation>
    </message>
    <message>
        <source>%1 is not a value for %2 of the rule %3.</source>
        <translation>%1 ist kein Wert für %2 der Regel %3.</translation>
    </message>
    <message>
        <source>The pattern %1 cannot be compiled: %2.</source>
        <translation>Das Muster %1 ist kein gültiger Ausdruck: %2.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost size PATH...

Adds up the sizes of the files in each PATH. Hidden files count; links below it do not.

Options:
  -h, --help  Shows this text.

Exit codes:
  0  done
  1  failed: not all that is in a PATH could be counted; the message names the directories
  2  the command line was not understood
  3  a PATH is neither directory nor file; the others are shown all the same</source>
        <translation>Aufruf: ovo-fieldhost size PATH...

Zählt die Größen der Dateien in jedem PATH zusammen. Verstecktes zählt mit,
Verknüpfungen darin nicht.

Optionen:
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  angezeigt
  1  fehlgeschlagen: nicht alles in einem PATH ließ sich zählen; die Meldung
     nennt die Verzeichnisse
  2  die Befehlszeile wurde nicht verstanden
  3  ein PATH ist weder Verzeichnis noch Datei; die anderen werden trotzdem
     angezeigt</translation>
    </message>
    <message>
        <source>What %1 holds is not counted, or only in part (%2).</source>
        <translation>Der Inhalt von %1 ist nicht oder nur zum Teil gezählt (%2).</translation>
    </message>
    <message>
        <source>%1 could not be counted as a whole, or has changed meanwhile: a second look finds %2 bytes.</source>
        <translation>%1 ließ sich nicht vollständig zählen oder hat sich inzwischen geändert: Ein zweiter Durchgang findet %2 Byte.</translation>
    </message>
    <message>
        <source>%1 is neither directory nor file.</source>
        <translation>%1 ist weder Verzeichnis noch Datei.</translation>
    </message>
    <message>
        <source>%1 (%2 bytes): %3</source>
        <translation>%1 (%2 Byte): %3</translation>
    </message>
    <message>
        <source>Adds up the sizes of the files in directories.</source>
        <translation>Zählt die Größen der Dateien in Verzeichnissen zusammen.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost trace [options] CLIP

Reads the clip information file of a video and draws distance, pan and tilt over time.

  CLIP  The video, which need not exist, or its clip information file.

Lines that cannot be read, such as a power cut leaves, are counted and left out. If a second
recording has continued the file, the recordings are drawn one after the other.

Options:
  --png FILE  Draws them as a picture, too.
  -h, --help  Shows this text.

Exit codes:
  0  drawn
  1  failed: there is no sample to draw, or the picture was not written
  2  the command line was not understood
  3  there is no clip information file, or it cannot be read</source>
        <translation>Aufruf: ovo-fieldhost trace [Optionen] CLIP

Liest die Messdatei eines Videos und zeichnet Vorschub, Schwenk und Neigung über
der Zeit.

  CLIP  Das Video, das es nicht geben muss, oder seine Messdatei.

Unlesbare Zeilen, wie ein Stromausfall sie hinterlässt, werden gezählt und
ausgelassen. Hat eine zweite Aufnahme die Datei fortgesetzt, werden die
Aufnahmen nacheinander gezeichnet.

Optionen:
  --png FILE  Zeichnet sie auch als Bild.
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  gezeichnet
  1  fehlgeschlagen: es gibt keinen Messwert zum Zeichnen, oder das Bild wurde
     nicht geschrieben
  2  die Befehlszeile wurde nicht verstanden
  3  es gibt keine Messdatei, oder sie ist nicht lesbar</translation>
    </message>
    <message>
        <source>1 recording</source>
        <translation>1 Aufnahme</translation>
    </message>
    <message>
        <source>%1 recordings</source>
        <translation>%1 Aufnahmen</translation>
    </message>
    <message>
        <source>
video %1 of %2, made by %3</source>
        <translation>
Video %1 vom %2, erstellt mit %3</translation>
    </message>
    <message>
        <source>1 line could not be read, the first is line %2.</source>
        <translation>1 Zeile war nicht lesbar, und zwar Zeile %2.</translation>
    </message>
    <message>
        <source>%1 lines could not be read, the first is line %2.</source>
        <translation>%1 Zeilen waren nicht lesbar, die erste ist Zeile %2.</translation>
    </message>
    <message>
        <source>1 sample has the number of a later one, which was taken.</source>
        <translation>1 Messwert hat die Nummer eines späteren; der spätere gilt.</translation>
    </message>
    <message>
        <source>%1 samples have the number of a later one, which was taken.</source>
        <translation>%1 Messwerte haben die Nummer eines späteren; der spätere gilt.</translation>
    </message>
    <message>
        <source>The FILE of --png is empty.</source>
        <translation>FILE von --png ist leer.</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 ist nicht lesbar: %2</translation>
    </message>
    <message>
        <source>There is no sample to draw.</source>
        <translation>Es gibt keinen Messwert zum Zeichnen.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>Draws the distance, pan and tilt of a recorded clip.</source>
        <translation>Zeichnet Vorschub, Schwenk und Neigung einer Aufnahme.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost usb [options] [list | root | lock PATH | unlock | dirty DEVICE]

Shows the USB drive, and makes it safe to pull.

  list          Shows the USB drives and their mounted partitions. This is the default.
  root          Prints the directory to offer as the USB drive.
  lock PATH     Mounts the drive and marks the partition that PATH lies on as in use.
  unlock        Unmounts the drive, as soon as nobody uses it, and marks it clean.
  dirty DEVICE  Tells whether the FAT volume on DEVICE, such as /dev/sda1, is marked as in use.

The drive is /dev/sda1, mounted on /media/usbdrive. If it is not mounted, &quot;list&quot;, &quot;root&quot; and &quot;lock&quot;
mount it temporarily to inspect it.

Options:
  --dry-run   Runs and writes nothing. Prints what would be run and written.
  -h, --help  Shows this text.

Exit codes:
  0  done
  1  failed, or there is no such drive; the message says why
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost usb [Optionen] [list | root | lock PATH | unlock |
                          dirty DEVICE]

Zeigt das USB-Laufwerk und sorgt dafür, dass es sich gefahrlos abziehen lässt.

  list          Zeigt die USB-Laufwerke und ihre eingehängten Partitionen. Das
                ist die Vorgabe.
  root          Zeigt das Verzeichnis, das als USB-Laufwerk anzubieten ist.
  lock PATH     Hängt das Laufwerk ein und markiert die Partition, auf der PATH
                liegt, als benutzt.
  unlock        Hängt das Laufwerk aus, sobald niemand es benutzt, und markiert
                es als sauber.
  dirty DEVICE  Sagt, ob das FAT-Laufwerk auf DEVICE, wie /dev/sda1, als benutzt
                markiert ist.

Das Laufwerk ist /dev/sda1, eingehängt in /media/usbdrive. Ist es nicht
eingehängt, hängen „list“, „root“ und „lock“ es zum Nachsehen kurz ein.

Optionen:
  --dry-run   Führt nichts aus und schreibt nichts. Zeigt, was ausgeführt und
              geschrieben würde.
  -h, --help  Zeigt diesen Text.

Rückgabewerte:
  0  erledigt
  1  fehlgeschlagen, oder es gibt kein solches Laufwerk; die Meldung nennt den
     Grund
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>Would run: %1 %2</source>
        <translation>Ausgeführt würde: %1 %2</translation>
    </message>
    <message>
        <source>Would write nothing: %1 has no dirty byte.</source>
        <translation>Geschrieben würde nichts: %1 kennt keine Markierung „benutzt“.</translation>
    </message>
    <message>
        <source>Would write: %1 to byte %2 of %3</source>
        <translation>Geschrieben würde: %1 in Byte %2 von %3</translation>
    </message>
    <message>
        <source>Would run nothing: the drive is mounted.</source>
        <translation>Ausgeführt würde nichts: Das Laufwerk ist eingehängt.</translation>
    </message>
    <message>
        <source>There is no USB drive.</source>
        <translation>Kein USB-Laufwerk vorhanden.</translation>
    </message>
    <message>
        <source>  nothing mounted</source>
        <translation>  nichts eingehängt</translation>
    </message>
    <message>
        <source>  %1 on %2</source>
        <translation>  %1 in %2</translation>
    </message>
    <message>
        <source>  not supported: the application works with exFAT, NTFS and the FAT volumes that it can mark</source>
        <translation>  nicht unterstützt: die Anwendung arbeitet mit exFAT, NTFS und den FAT-Laufwerken, die sie markieren kann</translation>
    </message>
    <message>
        <source>There is no mounted USB drive that you may write to.</source>
        <translation>Es gibt kein eingehängtes USB-Laufwerk, auf das Sie schreiben dürfen.</translation>
    </message>
    <message>
        <source>A file system on it is not supported; see: ovo-fieldhost usb list</source>
        <translation>Ein Dateisystem darauf wird nicht unterstützt; siehe: ovo-fieldhost usb list</translation>
    </message>
    <message>
        <source>Would write: 1 to the dirty byte of the partition, if it has one</source>
        <translation>Geschrieben würde: 1 in die Markierung „benutzt“ der Partition, falls sie eine hat</translation>
    </message>
    <message>
        <source>The drive is mounted on %1, and not marked.</source>
        <translation>Das Laufwerk ist in %1 eingehängt, aber nicht markiert.</translation>
    </message>
    <message>
        <source>Mounted and marked as in use: %1.</source>
        <translation>Eingehängt und als benutzt markiert: %1.</translation>
    </message>
    <message>
        <source>Mounted and marked as in use.</source>
        <translation>Eingehängt und als benutzt markiert.</translation>
    </message>
    <message>
        <source>Nothing is mounted on %1.</source>
        <translation>In %1 ist nichts eingehängt.</translation>
    </message>
    <message>
        <source>Unmounting, as soon as nobody uses the drive; Ctrl-C gives up.</source>
        <translation>Das Laufwerk wird ausgehängt, sobald niemand es benutzt; Strg-C gibt auf.</translation>
    </message>
    <message>
        <source>Would read: the boot sector of %1</source>
        <translation>Gelesen würde: der Bootsektor von %1</translation>
    </message>
    <message>
        <source>%1 holds no FAT file system, and so has no dirty byte that is known here.</source>
        <translation>%1 enthält kein FAT-Dateisystem und kennt daher keine Markierung „benutzt“.</translation>
    </message>
    <message>
        <source>dirty</source>
        <translation>als benutzt markiert</translation>
    </message>
    <message>
        <source>clean</source>
        <translation>sauber</translation>
    </message>
    <message>
        <source>A lock does not mark it: it knows no type for volumes of this size.</source>
        <translation>„lock“ markiert es nicht: Für Laufwerke dieser Größe ist kein Typ bekannt.</translation>
    </message>
    <message>
        <source>Shows the USB drive, and makes it safe to pull.</source>
        <translation>Zeigt das USB-Laufwerk und macht es bereit zum Abziehen.</translation>
    </message>
    <message>
        <source>Usage: ovo-fieldhost validate [options] --rule RULE... [--] TEXT...

Tells what a form would say of each TEXT: whether it passes all rules, and the verdict and the
hint of each rule.

  RULE  TYPE, or TYPE:OPTION=VALUE,OPTION=VALUE...

        double    a number             bottom, top, step
        int       a whole number       bottom, top, step
        regexp    a pattern            pattern
        mask      digits, each a 0     pattern
        datetime  a date or a time     format, such as dd.MM.yyyy
        length    a number of letters  bottom, top
        notempty  at least a letter

        A pattern or a format reaches to the end of the RULE, commas included.
  TEXT  Behind &quot;--&quot; it may begin with &quot;-&quot;.

Numbers are those of the environment&apos;s locale.

Options:
  --rule RULE  Adds a rule. May be given several times.
  --final      The user is done: what may still become right by more typing does not pass.
  -h, --help   Shows this text.

Exit codes:
  0  every TEXT passes
  1  a TEXT does not pass
  2  the command line was not understood</source>
        <translation>Aufruf: ovo-fieldhost validate [Optionen] --rule RULE... [--] TEXT...

Sagt, was ein Formular zu jedem TEXT sagen würde: ob er alle Regeln erfüllt, und
Urteil und Hinweis jeder Regel.

  RULE  TYPE, oder TYPE:OPTION=VALUE,OPTION=VALUE...

        double    eine Zahl                 bottom, top, step
        int       eine ganze Zahl           bottom, top, step
        regexp    ein Muster                pattern
        mask      Ziffern, jede eine 0      pattern
        datetime  Datum oder Uhrzeit        format, wie dd.MM.yyyy
        length    eine Anzahl von Zeichen   bottom, top
        notempty  mindestens ein Zeichen

        Ein Muster oder ein Format reicht bis zum Ende der RULE, mit allen
        Kommas.
  TEXT  Hinter „--“ darf er mit „-“ beginnen.

Zahlen sind die des Gebietsschemas der Umgebung.

Optionen:
  --rule RULE  Fügt eine Regel hinzu. Mehrfach erlaubt.
  --final      Die Eingabe ist fertig: Was erst durch Weitertippen richtig
               würde, wird abgelehnt.
  -h, --help   Zeigt diesen Text.

Rückgabewerte:
  0  jeder TEXT erfüllt alle Regeln
  1  ein TEXT erfüllt sie nicht
  2  die Befehlszeile wurde nicht verstanden</translation>
    </message>
    <message>
        <source>Invalid</source>
        <translation>Ungültig</translation>
    </message>
    <message>
        <source>Intermediate</source>
        <translation>Unfertig</translation>
    </message>
    <message>
        <source>Acceptable</source>
        <translation>Gültig</translation>
    </message>
    <message>
        <source>, read as %1</source>
        <translation>, gelesen als %1</translation>
    </message>
    <message>
        <source>%1 passes</source>
        <translation>%1 erfüllt alle Regeln</translation>
    </message>
    <message>
        <source>%1 does not pass</source>
        <translation>%1 erfüllt nicht alle Regeln</translation>
    </message>
    <message>
        <source>A --rule is missing.</source>
        <translation>--rule fehlt.</translation>
    </message>
    <message>
        <source>Tells whether texts pass the rules of a form, and why not.</source>
        <translation>Sagt, ob Texte die Regeln eines Formulars erfüllen.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::CopyVerification</name>
    <message>
        <source>it or its copy cannot be read any more</source>
        <translation>die Datei oder ihre Kopie ist nicht mehr lesbar</translation>
    </message>
    <message>
        <source>its copy differs from it</source>
        <translation>die Kopie weicht vom Original ab</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::DeleteModel</name>
    <message numerus="yes">
        <source>Aborted. Not deleted: %n</source>
        <translation>
            <numerusform>Abgebrochen. Nicht gelöscht: %n</numerusform>
            <numerusform>Abgebrochen. Nicht gelöscht: %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::DeleteRun</name>
    <message>
        <source>%1 cannot be deleted</source>
        <translation>%1 lässt sich nicht löschen</translation>
    </message>
    <message>
        <source>The directory %1 cannot be read as a whole</source>
        <translation>Das Verzeichnis %1 ist nicht vollständig lesbar</translation>
    </message>
    <message>
        <source>The same goes for 1 more directory.</source>
        <translation>Dasselbe gilt für 1 weiteres Verzeichnis.</translation>
    </message>
    <message>
        <source>The same goes for %1 more directories.</source>
        <translation>Dasselbe gilt für %1 weitere Verzeichnisse.</translation>
    </message>
    <message>
        <source>The deletion did not come to its end.</source>
        <translation>Das Löschen wurde nicht beendet.</translation>
    </message>
    <message>
        <source>That %1 is deleted could not be written to the device</source>
        <translation>Das Löschen von %1 konnte nicht auf das Gerät geschrieben werden</translation>
    </message>
    <message>
        <source>%1, or part of it, is still there.</source>
        <translation>%1 ist ganz oder teilweise noch da.</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::DeleteTask</name>
    <message>
        <source>Deleted: %1</source>
        <translation>Gelöscht: %1</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::DriveAccess</name>
    <message>
        <source>Warning: on a FAT drive every file has less than 4 GiB. The copy will fail at %1.</source>
        <translation>Achtung: Auf einem FAT-Laufwerk muss jede Datei kleiner als 4 GiB sein. Die Kopie wird scheitern an %1.</translation>
    </message>
    <message>
        <source>%2 and 1 more file</source>
        <translation>%2 und 1 weiteren Datei</translation>
    </message>
    <message>
        <source>%2 and %1 more files</source>
        <translation>%2 und %1 weiteren Dateien</translation>
    </message>
    <message>
        <source>The USB drive is not marked as in use, and stays mounted. %1</source>
        <translation>Das USB-Laufwerk ist nicht als benutzt markiert und bleibt eingehängt. %1</translation>
    </message>
    <message>
        <source>The USB drive is marked as in use: %1.</source>
        <translation>Das USB-Laufwerk ist als benutzt markiert: %1.</translation>
    </message>
    <message>
        <source>The USB drive is marked as in use.</source>
        <translation>Das USB-Laufwerk ist als benutzt markiert.</translation>
    </message>
    <message>
        <source>Nothing was copied: it would not land on a drive.</source>
        <translation>Nichts wurde kopiert: Es käme nicht auf ein Laufwerk.</translation>
    </message>
    <message>
        <source>The USB drive is not marked as in use. %1</source>
        <translation>Das USB-Laufwerk ist nicht als benutzt markiert. %1</translation>
    </message>
    <message>
        <source>The USB drive is unmounted and marked clean.</source>
        <translation>Das USB-Laufwerk ist ausgehängt und als sauber markiert.</translation>
    </message>
    <message>
        <source>The USB drive is unmounted.</source>
        <translation>Das USB-Laufwerk ist ausgehängt.</translation>
    </message>
    <message>
        <source>The USB drive is unmounted, and still marked as in use: it did not take the mark back.</source>
        <translation>Das USB-Laufwerk ist ausgehängt, aber noch als benutzt markiert: Die Markierung ließ sich nicht entfernen.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::ExportRun</name>
    <message>
        <source>%1 cannot be opened</source>
        <translation>%1 lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>%1 cannot be created</source>
        <translation>%1 lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>%1 cannot be written</source>
        <translation>%1 lässt sich nicht schreiben</translation>
    </message>
    <message>
        <source>%1 cannot be copied</source>
        <translation>%1 lässt sich nicht kopieren</translation>
    </message>
    <message>
        <source>Warning: an earlier export did not come to its end, and has left %1. It may be removed once the volume has been checked.</source>
        <translation>Achtung: Ein früherer Export wurde nicht beendet und hat %1 hinterlassen. Nach einer Prüfung des Datenträgers darf es gelöscht werden.</translation>
    </message>
    <message>
        <source>%1 was not copied: %2.</source>
        <translation>%1 wurde nicht kopiert: %2.</translation>
    </message>
    <message>
        <source>The source holds 1 file more than when it was looked through.</source>
        <translation>Die Quelle enthält 1 Datei mehr als bei der Durchsicht.</translation>
    </message>
    <message>
        <source>The source holds %1 files more than when it was looked through.</source>
        <translation>Die Quelle enthält %1 Dateien mehr als bei der Durchsicht.</translation>
    </message>
    <message>
        <source>The copy could not begin</source>
        <translation>Die Kopie konnte nicht beginnen</translation>
    </message>
    <message>
        <source>The directory %1 cannot be read as a whole</source>
        <translation>Das Verzeichnis %1 ist nicht vollständig lesbar</translation>
    </message>
    <message>
        <source>The same goes for 1 more directory.</source>
        <translation>Dasselbe gilt für 1 weiteres Verzeichnis.</translation>
    </message>
    <message>
        <source>The same goes for %1 more directories.</source>
        <translation>Dasselbe gilt für %1 weitere Verzeichnisse.</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>As before: %1, with all that it holds.</source>
        <translation>Wie zuvor: %1 mit dem gesamten Inhalt.</translation>
    </message>
    <message>
        <source>The copy of %1 is not good: %2.</source>
        <translation>Die Kopie von %1 ist nicht in Ordnung: %2.</translation>
    </message>
    <message>
        <source>Aborted. The copy is in its place, but was not compared.</source>
        <translation>Abgebrochen. Die Kopie ist am Ziel, wurde aber nicht verglichen.</translation>
    </message>
    <message>
        <source>Aborted. Removed: %1</source>
        <translation>Abgebrochen. Entfernt: %1</translation>
    </message>
    <message>
        <source>What was in the destination before is unchanged.</source>
        <translation>Was schon am Ziel war, ist unverändert.</translation>
    </message>
    <message>
        <source>Verified: every copy equals its source</source>
        <translation>Geprüft: Jede Kopie gleicht ihrer Quelle</translation>
    </message>
    <message>
        <source>Done: %1, %2 in %3 (%4)</source>
        <translation>Fertig: %1, %2 in %3 (%4)</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 Dateien</translation>
    </message>
    <message>
        <source>%1 of %2 are whole in %3, the others are missing; no partial file is left.</source>
        <translation>%1 von %2 sind vollständig in %3, die übrigen fehlen; keine Datei ist unvollständig.</translation>
    </message>
    <message>
        <source>The unfinished copy was removed; what was in the destination before is unchanged.</source>
        <translation>Die unfertige Kopie wurde entfernt; was schon am Ziel war, ist unverändert.</translation>
    </message>
    <message>
        <source>Nothing was left in the destination.</source>
        <translation>Am Ziel ist nichts zurückgeblieben.</translation>
    </message>
    <message>
        <source>The copies that replaced files of the same name stay where they are. Export again.</source>
        <translation>Kopien, die gleichnamige Dateien ersetzt haben, bleiben am Ziel. Bitte erneut exportieren.</translation>
    </message>
    <message>
        <source>Failed: the drive was taken away, or the directory moved: %1 is not what it was when the copy began.</source>
        <translation>Fehlgeschlagen: Das Laufwerk wurde entfernt oder das Verzeichnis verschoben: %1 ist nicht mehr dasselbe wie zu Beginn der Kopie.</translation>
    </message>
    <message>
        <source>Nothing was written anywhere else. What the drive holds of the copy is not whole.</source>
        <translation>An keinen anderen Ort wurde geschrieben. Die Kopie auf dem Laufwerk ist unvollständig.</translation>
    </message>
    <message>
        <source>%1 of %2 are whole in %3. The drive does not take what is written: one more file may be there, cut off.</source>
        <translation>%1 von %2 sind vollständig in %3. Das Laufwerk nimmt nichts mehr an: Eine weitere Datei kann dort sein, abgeschnitten.</translation>
    </message>
    <message>
        <source>The drive does not take what is written: files of the copy may be left there, cut off.</source>
        <translation>Das Laufwerk nimmt nichts mehr an: Dateien der Kopie können dort geblieben sein, abgeschnitten.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::ExportTask</name>
    <message>
        <source>Aborted before anything was copied.</source>
        <translation>Abgebrochen, bevor etwas kopiert wurde.</translation>
    </message>
    <message>
        <source>Left out: %1</source>
        <translation>Ausgelassen: %1</translation>
    </message>
    <message>
        <source>Nothing was copied.</source>
        <translation>Nichts wurde kopiert.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::FormField</name>
    <message>
        <source>Must be filled in.</source>
        <translation>Muss ausgefüllt werden.</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Correct.</source>
        <translation>Richtig.</translation>
    </message>
    <message>
        <source>Not complete.</source>
        <translation>Unvollständig.</translation>
    </message>
    <message>
        <source>Not correct.</source>
        <translation>Nicht richtig.</translation>
    </message>
    <message>
        <source>Not correct yet.</source>
        <translation>Noch nicht richtig.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::FormFile</name>
    <message>
        <source>the form</source>
        <translation>das Formular</translation>
    </message>
    <message>
        <source>&quot;format&quot; is not %1, the only one known</source>
        <translation>„format“ ist nicht %1, das einzige bekannte</translation>
    </message>
    <message>
        <source>column &quot;%1&quot;</source>
        <translation>Spalte „%1“</translation>
    </message>
    <message>
        <source>it</source>
        <translation>es</translation>
    </message>
    <message>
        <source>code list &quot;%1&quot;</source>
        <translation>Codeliste „%1“</translation>
    </message>
    <message>
        <source>an entry</source>
        <translation>ein Eintrag</translation>
    </message>
    <message>
        <source>it has no entries</source>
        <translation>sie hat keine Einträge</translation>
    </message>
    <message>
        <source>a column</source>
        <translation>eine Spalte</translation>
    </message>
    <message>
        <source>there is no code list &quot;%1&quot;</source>
        <translation>es gibt keine Codeliste „%1“</translation>
    </message>
    <message>
        <source>there is no control &quot;%1&quot;</source>
        <translation>es gibt kein Bedienelement „%1“</translation>
    </message>
    <message>
        <source>%1 has no key &quot;%2&quot;</source>
        <translation>den Schlüssel „%2“ hat %1 nicht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation>„%1“ ist kein Text</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation>„%1“ ist weder true noch false</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a length</source>
        <translation>„%1“ ist keine Länge</translation>
    </message>
    <message>
        <source>%1 is not an object</source>
        <translation>%1 ist kein Objekt</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>sie ist nicht lesbar</translation>
    </message>
    <message>
        <source>it is not an object</source>
        <translation>sie ist kein Objekt</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::InspectionForm</name>
    <message>
        <source>The form &quot;%1&quot; cannot be used: %2.</source>
        <translation>Das Formular „%1“ ist nicht brauchbar: %2.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::JobText</name>
    <message>
        <source>The catalog %1 cannot be read: %2.</source>
        <translation>Der Katalog %1 ist nicht lesbar: %2.</translation>
    </message>
    <message>
        <source>The catalog %1 cannot be used. Line %2, column %3: %4.</source>
        <translation>Der Katalog %1 ist nicht brauchbar. Zeile %2, Spalte %3: %4.</translation>
    </message>
    <message>
        <source>it is not in the destination</source>
        <translation>die Datei fehlt am Ziel</translation>
    </message>
    <message>
        <source>it is no longer in the source</source>
        <translation>die Datei ist nicht mehr in der Quelle</translation>
    </message>
    <message>
        <source>reading it gave %1 where its size says %2; it may have changed while it was copied</source>
        <translation>gelesen wurden %1, die Größe ist aber %2; vielleicht hat sich die Datei während der Kopie geändert</translation>
    </message>
    <message>
        <source>its name and that of %1 are one and the same on the destination&apos;s file system, so that one of them has replaced the other</source>
        <translation>im Dateisystem des Ziels ist ihr Name derselbe wie der von %1, sodass die eine Datei die andere ersetzt hat</translation>
    </message>
    <message>
        <source>the directory cannot be created in the destination (%1)</source>
        <translation>das Verzeichnis lässt sich am Ziel nicht anlegen (%1)</translation>
    </message>
    <message>
        <source>The source %1 is a link that leads nowhere.</source>
        <translation>Die Quelle %1 ist eine Verknüpfung ins Leere.</translation>
    </message>
    <message>
        <source>The source %1 does not exist.</source>
        <translation>Die Quelle %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>The source %1 is not a directory.</source>
        <translation>Die Quelle %1 ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>%1 would be copied onto itself.</source>
        <translation>%1 würde auf sich selbst kopiert.</translation>
    </message>
    <message>
        <source>The destination %1 lies inside the source %2, so the copy would hold itself.</source>
        <translation>Das Ziel %1 liegt in der Quelle %2, die Kopie würde sich selbst enthalten.</translation>
    </message>
    <message>
        <source>The source %1 lies inside the destination %2, so the copy could replace parts of its own source.</source>
        <translation>Die Quelle %1 liegt im Ziel %2, die Kopie könnte Teile der Quelle ersetzen.</translation>
    </message>
    <message>
        <source>The destination %1 is not a directory.</source>
        <translation>Das Ziel %1 ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>The destination %1 cannot be created: %2 is a link that leads nowhere.</source>
        <translation>Das Ziel %1 lässt sich nicht anlegen: %2 ist eine Verknüpfung ins Leere.</translation>
    </message>
    <message>
        <source>The destination %1 cannot be created: %2 is not a directory.</source>
        <translation>Das Ziel %1 lässt sich nicht anlegen: %2 ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>Nothing can be written to %1 (%2).</source>
        <translation>In %1 kann nicht geschrieben werden (%2).</translation>
    </message>
    <message>
        <source>The destination %1 exists and is not empty.
An abort removes the directories of a copy whole, with all that they held, so by default the copy goes to a new or empty directory. Name one, or give --into-existing: then what is there stays until all of the copy is whole, and only files of the same name are replaced.</source>
        <translation>Das Ziel %1 ist vorhanden und nicht leer.
Ein Abbruch löscht die Verzeichnisse einer Kopie mit allem, was darin ist. Daher geht eine Kopie sonst in ein neues oder leeres Verzeichnis. Geben Sie eines an, oder --into-existing: Dann bleibt alles Vorhandene, bis die Kopie vollständig ist, und nur gleichnamige Dateien werden ersetzt.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be opened (%2).</source>
        <translation>Das Verzeichnis %1 lässt sich nicht öffnen (%2).</translation>
    </message>
    <message>
        <source>%1 and %2 would both be copied to %3.</source>
        <translation>%1 und %2 würden beide nach %3 kopiert.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be copied to %2, which is not a directory.</source>
        <translation>Das Verzeichnis %1 lässt sich nicht nach %2 kopieren, denn das ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>The file %1 cannot be copied to %2, which is not a file.</source>
        <translation>Die Datei %1 lässt sich nicht nach %2 kopieren, denn das ist keine Datei.</translation>
    </message>
    <message>
        <source>The same goes for 1 more entry.</source>
        <translation>Dasselbe gilt für 1 weiteren Eintrag.</translation>
    </message>
    <message>
        <source>The same goes for %1 more entries.</source>
        <translation>Dasselbe gilt für %1 weitere Einträge.</translation>
    </message>
    <message>
        <source>So a copy of %1 could not be whole; nothing was copied.</source>
        <translation>Eine Kopie von %1 wäre also unvollständig; nichts wurde kopiert.</translation>
    </message>
    <message>
        <source>The directory %1 cannot take the place of %2, which is not a directory.</source>
        <translation>Das Verzeichnis %1 kann %2 nicht ersetzen, denn das ist kein Verzeichnis.</translation>
    </message>
    <message>
        <source>The directory %1 is on another volume than %2, so a copy cannot be moved to it. Export to it alone.</source>
        <translation>Das Verzeichnis %1 liegt auf einem anderen Datenträger als %2, eine Kopie lässt sich nicht dorthin verschieben. Exportieren Sie getrennt dorthin.</translation>
    </message>
    <message>
        <source>The file %1 cannot take the place of %2, which is a directory.</source>
        <translation>Die Datei %1 kann %2 nicht ersetzen, denn das ist ein Verzeichnis.</translation>
    </message>
    <message>
        <source>The path of %1 would be too long in the destination: %2, and %3 are possible. Choose a destination with a shorter path.</source>
        <translation>Der Pfad von %1 wäre am Ziel zu lang: %2, möglich sind %3. Wählen Sie ein Ziel mit kürzerem Pfad.</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>The file %1 and a directory of %2 would both be copied to %3.</source>
        <translation>Die Datei %1 und ein Verzeichnis aus %2 würden beide nach %3 kopiert.</translation>
    </message>
    <message>
        <source>Not enough free space in %1: the copy needs %2, and %3 are free, so %4 are missing.</source>
        <translation>Zu wenig freier Platz in %1: Die Kopie braucht %2, frei sind %3, es fehlen %4.</translation>
    </message>
    <message>
        <source>The copy cannot be moved to its place: %1: %2.</source>
        <translation>Die Kopie lässt sich nicht an ihren Platz verschieben: %1: %2.</translation>
    </message>
    <message>
        <source>New: %1.</source>
        <translation>Neu: %1.</translation>
    </message>
    <message>
        <source>New, but perhaps not yet on the device: %1.</source>
        <translation>Neu, aber vielleicht noch nicht auf dem Gerät: %1.</translation>
    </message>
    <message>
        <source>As before: %1.</source>
        <translation>Wie zuvor: %1.</translation>
    </message>
    <message>
        <source>%1 files, from %2 to %3 in the order of the copy</source>
        <translation>%1 Dateien, von %2 bis %3 in der Reihenfolge der Kopie</translation>
    </message>
    <message>
        <source>%1 is a directory, not a clip.</source>
        <translation>%1 ist ein Verzeichnis, kein Video.</translation>
    </message>
    <message>
        <source>%1 has no name before its first dot.</source>
        <translation>%1 hat keinen Namen vor dem ersten Punkt.</translation>
    </message>
    <message>
        <source>%1 is the name of a clip information file, not of a clip.</source>
        <translation>%1 ist der Name einer Messdatei, nicht eines Videos.</translation>
    </message>
    <message>
        <source>There is no directory %1.</source>
        <translation>Das Verzeichnis %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 is there and cannot be continued.</source>
        <translation>%1 ist vorhanden und lässt sich nicht fortsetzen.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be written to.</source>
        <translation>In das Verzeichnis %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>the directory cannot be read (%1)</source>
        <translation>das Verzeichnis ist nicht lesbar (%1)</translation>
    </message>
    <message>
        <source>the link leads back to a directory that holds it, so the copy would never end</source>
        <translation>die Verknüpfung führt in ein Verzeichnis zurück, in dem sie liegt; die Kopie würde nie fertig</translation>
    </message>
    <message>
        <source>the link leads to a pipe, a socket or a device</source>
        <translation>die Verknüpfung führt zu einer Pipe, einem Socket oder einem Gerät</translation>
    </message>
    <message>
        <source>the name is not valid UTF-8; it can be copied once renamed</source>
        <translation>der Name ist kein gültiges UTF-8; nach dem Umbenennen lässt sich kopieren</translation>
    </message>
    <message>
        <source>the file cannot be read (%1)</source>
        <translation>die Datei ist nicht lesbar (%1)</translation>
    </message>
    <message>
        <source>its path holds the path of the source a second time, so it would be copied to a wrong place</source>
        <translation>der Pfad enthält den Pfad der Quelle ein zweites Mal; die Kopie käme an den falschen Ort</translation>
    </message>
    <message>
        <source>neither a directory nor a regular file</source>
        <translation>weder ein Verzeichnis noch eine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>A directory for the copy cannot be created in %1: %2.</source>
        <translation>In %1 lässt sich kein Verzeichnis für die Kopie anlegen: %2.</translation>
    </message>
    <message>
        <source>The directory %1 cannot be created: %2.</source>
        <translation>Das Verzeichnis %1 lässt sich nicht anlegen: %2.</translation>
    </message>
    <message>
        <source>All is in its place, but %1 cannot be removed.</source>
        <translation>Alles ist an seinem Platz, aber %1 lässt sich nicht entfernen.</translation>
    </message>
    <message>
        <source>The copy in %1 could not be written to the device: %2.</source>
        <translation>Die Kopie in %1 konnte nicht auf das Gerät geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>%1 could not be removed. The next export to this place will try again.</source>
        <translation>%1 konnte nicht entfernt werden. Der nächste Export an dieses Ziel versucht es erneut.</translation>
    </message>
    <message>
        <source>%1 could not be removed.</source>
        <translation>%1 konnte nicht entfernt werden.</translation>
    </message>
    <message>
        <source>distance %1</source>
        <translation>Vorschub %1</translation>
    </message>
    <message>
        <source>pan °</source>
        <translation>Schwenk °</translation>
    </message>
    <message>
        <source>tilt °</source>
        <translation>Neigung °</translation>
    </message>
    <message>
        <source>FAT of no known type</source>
        <translation>FAT unbekannter Art</translation>
    </message>
    <message>
        <source>Mounting and unmounting %1 needs root, or a line for it in %2 with the option &quot;users&quot;.</source>
        <translation>Zum Einhängen und Aushängen von %1 sind Rechte von root nötig, oder eine Zeile in %2 mit der Option „users“.</translation>
    </message>
    <message>
        <source>Writing to %1 needs root, or a udev rule that gives the device to one of your groups.</source>
        <translation>Zum Schreiben auf %1 sind Rechte von root nötig, oder eine udev-Regel, die das Gerät einer Ihrer Gruppen gibt.</translation>
    </message>
    <message>
        <source>Writing to %1 is not possible (%2).</source>
        <translation>Auf %1 kann nicht geschrieben werden (%2).</translation>
    </message>
    <message>
        <source>Reading %1 needs root, or a udev rule that gives the device to one of your groups.</source>
        <translation>Zum Lesen von %1 sind Rechte von root nötig, oder eine udev-Regel, die das Gerät einer Ihrer Gruppen gibt.</translation>
    </message>
    <message>
        <source>Reading %1 is not possible (%2).</source>
        <translation>%1 ist nicht lesbar (%2).</translation>
    </message>
    <message>
        <source>%1 has no dirty byte to set.</source>
        <translation>%1 kennt keine Markierung „benutzt“.</translation>
    </message>
    <message>
        <source>%1 did not take the dirty byte.</source>
        <translation>%1 hat die Markierung „benutzt“ nicht angenommen.</translation>
    </message>
    <message>
        <source>%1 lies on no mounted USB drive that you may write to.</source>
        <translation>%1 liegt auf keinem eingehängten USB-Laufwerk, auf das Sie schreiben dürfen.</translation>
    </message>
    <message>
        <source>No USB drive is mounted on %1.</source>
        <translation>In %1 ist kein USB-Laufwerk eingehängt.</translation>
    </message>
    <message>
        <source>Unmounted. There was no dirty byte to clear.</source>
        <translation>Ausgehängt. Es gab keine Markierung „benutzt“.</translation>
    </message>
    <message>
        <source>Unmounted and marked clean: %1.</source>
        <translation>Ausgehängt und als sauber markiert: %1.</translation>
    </message>
    <message>
        <source>Unmounted, and still marked as in use. %1</source>
        <translation>Ausgehängt, aber noch als benutzt markiert. %1</translation>
    </message>
    <message>
        <source>%1 did not take the mark back.</source>
        <translation>Bei %1 ließ sich die Markierung nicht entfernen.</translation>
    </message>
    <message>
        <source>C</source>
        <extracomment>The locale of the numbers in all texts: &quot;de&quot; for German</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>There is no %1.</source>
        <translation>%1 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 is, or holds, the current directory.</source>
        <translation>%1 ist das aktuelle Verzeichnis oder enthält es.</translation>
    </message>
    <message>
        <source>1 hidden entry</source>
        <translation>1 versteckter Eintrag</translation>
    </message>
    <message>
        <source>%1 hidden entries</source>
        <translation>%1 versteckte Einträge</translation>
    </message>
    <message>
        <source>1 link that leads nowhere</source>
        <translation>1 Verknüpfung ins Leere</translation>
    </message>
    <message>
        <source>%1 links that lead nowhere</source>
        <translation>%1 Verknüpfungen ins Leere</translation>
    </message>
    <message>
        <source>1 pipe, socket or device</source>
        <translation>1 Pipe, Socket oder Gerät</translation>
    </message>
    <message>
        <source>%1 pipes, sockets or devices</source>
        <translation>%1 Pipes, Sockets oder Geräte</translation>
    </message>
    <message>
        <source>The USB drive on %1 was pulled out. Run &quot;ovo-fieldhost usb unlock&quot;, then plug it in again.</source>
        <translation>Das USB-Laufwerk in %1 wurde abgezogen. Bitte &quot;ovo-fieldhost usb unlock&quot; ausführen und es dann wieder einstecken.</translation>
    </message>
    <message>
        <source>The USB drive was pulled out while it was mounted. It is unmounted now, but what was written last may be missing, and a FAT volume is still marked as in use. Plug it in again and check it, or lock and unlock it, which marks it clean.</source>
        <translation>Das USB-Laufwerk wurde abgezogen, solange es eingehängt war. Es ist jetzt ausgehängt, aber zuletzt Geschriebenes kann fehlen, und ein FAT-Laufwerk ist noch als benutzt markiert. Bitte wieder einstecken und prüfen, oder sperren und freigeben; danach ist es als sauber markiert.</translation>
    </message>
    <message>
        <source>Unmounted. Another drive is in its place now, and was not touched: the drive that was mounted is still marked as in use.</source>
        <translation>Ausgehängt. An seiner Stelle ist jetzt ein anderes Laufwerk; es wurde nicht angetastet. Das vorige ist noch als benutzt markiert.</translation>
    </message>
    <message>
        <source>Unmounted. %1 is marked as in use all the same, and was not touched: check it.</source>
        <translation>Ausgehängt. %1 ist trotzdem als benutzt markiert und wurde nicht angetastet: bitte prüfen.</translation>
    </message>
    <message>
        <source>A lock does not mark %1: it knows no type for volumes of this size.</source>
        <translation>%1 wird nicht als benutzt markiert: Für Laufwerke dieser Größe ist kein Typ bekannt.</translation>
    </message>
    <message>
        <source>%1 is before %2, with which the time of %3 begins. No clock was changed.</source>
        <translation>%1 liegt vor %2, dem Anfang der Zeit für %3. Keine Uhr wurde verstellt.</translation>
    </message>
    <message>
        <source>%1 is after %2, with which the time of %3 ends. No clock was changed.</source>
        <translation>%1 liegt nach %2, dem Ende der Zeit für %3. Keine Uhr wurde verstellt.</translation>
    </message>
    <message>
        <source>the system clock</source>
        <translation>die Systemuhr</translation>
    </message>
    <message>
        <source>the hardware clock</source>
        <translation>die Hardwareuhr</translation>
    </message>
    <message>
        <source>it shows %1</source>
        <translation>sie zeigt %1</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>sie ist nicht lesbar</translation>
    </message>
    <message>
        <source>The clock is set.</source>
        <translation>Die Uhr ist gestellt.</translation>
    </message>
    <message>
        <source>A command has failed, although the system clock and the hardware clock show the time that was to be set.</source>
        <translation>Ein Befehl ist gescheitert, obwohl Systemuhr und Hardwareuhr die gewünschte Zeit zeigen.</translation>
    </message>
    <message>
        <source>The system clock is set, the hardware clock is not: %1. The time may be wrong after the next start.</source>
        <translation>Die Systemuhr ist gestellt, die Hardwareuhr nicht: %1. Nach dem nächsten Start kann die Zeit falsch sein.</translation>
    </message>
    <message>
        <source>The hardware clock is set, the system clock is not: %1.</source>
        <translation>Die Hardwareuhr ist gestellt, die Systemuhr nicht: %1.</translation>
    </message>
    <message>
        <source>The clock is not set: %1.</source>
        <translation>Die Uhr ist nicht gestellt: %1.</translation>
    </message>
    <message>
        <source>Setting a clock needs the rights of root, or the capability CAP_SYS_TIME.</source>
        <translation>Um eine Uhr zu stellen, braucht es die Rechte von root oder die Capability CAP_SYS_TIME.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::ProjectLocale</name>
    <message>
        <source>The catalog&apos;s country code %1 is not known.</source>
        <translation>Das Länderkürzel %1 des Katalogs ist unbekannt.</translation>
    </message>
    <message>
        <source>The catalog&apos;s language code %1 is not known.</source>
        <translation>Das Sprachkürzel %1 des Katalogs ist unbekannt.</translation>
    </message>
    <message>
        <source>Distances are in %1, as the catalog has it.</source>
        <translation>Längen in %1, wie im Katalog.</translation>
    </message>
    <message>
        <source>Distances are in %1, as the locale has it.</source>
        <translation>Längen in %1, wie im Gebietsschema.</translation>
    </message>
    <message>
        <source>Shown as %1.</source>
        <translation>Angezeigt als %1.</translation>
    </message>
    <message>
        <source>The catalog&apos;s unit %1 is not a unit of distance, so the locale decides.</source>
        <translation>Die Einheit %1 des Katalogs ist keine Längeneinheit; das Gebietsschema entscheidet.</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::RecordRun</name>
    <message>
        <source>its last line is not complete</source>
        <translation>die letzte Zeile ist unvollständig</translation>
    </message>
    <message>
        <source>it lacks what was recorded</source>
        <translation>die Aufzeichnung fehlt darin</translation>
    </message>
</context>
<context>
    <name>Tavro::FieldHost::Recording</name>
    <message>
        <source>Continues %1 after %2.</source>
        <translation>Fortsetzung von %1, bisher %2.</translation>
    </message>
    <message>
        <source>1 sample</source>
        <translation>1 Messwert</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 Messwerte</translation>
    </message>
    <message>
        <source>Recorded %1 of video, %2 in %3.</source>
        <translation>Aufgenommen: %1 Video, %2 in %3.</translation>
    </message>
    <message>
        <source>%1 was not written as it should be: %2</source>
        <translation>%1 wurde nicht richtig geschrieben: %2</translation>
    </message>
</context>
</TS>
