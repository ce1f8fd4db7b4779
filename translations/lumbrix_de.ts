<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Accessibility</name>
    <message>
        <source>raise</source>
        <translation>nach vorn holen</translation>
    </message>
    <message>
        <source>press</source>
        <translation>drücken</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Do not show this message again</source>
        <translation>Diese Meldung nicht mehr zeigen</translation>
    </message>
</context>
<context>
    <name>CalPreview</name>
    <message>
        <source>No events for today.</source>
        <translation>Heute keine Termine.</translation>
    </message>
</context>
<context>
    <name>CalendarPicker</name>
    <message>
        <source>Calendars</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Show events of these calendars:</source>
        <translation>Termine dieser Kalender zeigen:</translation>
    </message>
    <message>
        <source>No calendars were found.</source>
        <translation>Es wurden keine Kalender gefunden.</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Calendars – Lumbrix Preferences</source>
        <translation>Kalender – Lumbrix-Einstellungen</translation>
    </message>
</context>
<context>
    <name>Calendars</name>
    <message>
        <source>Personal</source>
        <translation>Persönlich</translation>
    </message>
</context>
<context>
    <name>FilterLevel</name>
    <message>
        <source>Low</source>
        <translation>Niedrig</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Block all</source>
        <translation>Alles sperren</translation>
    </message>
    <message>
        <source>TotalFinder</source>
        <translation>Dateiverwaltung</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Previews every window.</source>
        <translation>Zeigt jedes Fenster.</translation>
    </message>
    <message>
        <source>Leaves out windows with nothing in them.</source>
        <translation>Lässt Fenster aus, in denen nichts ist.</translation>
    </message>
    <message>
        <source>Shows no previews at all.</source>
        <translation>Zeigt gar keine Vorschauen.</translation>
    </message>
    <message>
        <source>Leaves out empty windows, palettes and other floating windows.</source>
        <translation>Lässt leere Fenster, Paletten und andere schwebende Fenster aus.</translation>
    </message>
    <message>
        <source>Leaves out windows with nothing in them, for a file manager whose windows have tabs.</source>
        <translation>Lässt Fenster aus, in denen nichts ist; für eine Dateiverwaltung, deren Fenster Reiter haben.</translation>
    </message>
    <message>
        <source>every window</source>
        <translation>jedes Fenster</translation>
    </message>
    <message>
        <source>all but empty windows</source>
        <translation>alle außer leeren Fenstern</translation>
    </message>
    <message>
        <source>no window</source>
        <translation>kein Fenster</translation>
    </message>
    <message>
        <source>all but empty windows and palettes</source>
        <translation>alle außer leeren Fenstern und Paletten</translation>
    </message>
</context>
<context>
    <name>FilterSheet</name>
    <message>
        <source>&amp;Application:</source>
        <translation>&amp;Anwendung:</translation>
    </message>
    <message>
        <source>&amp;Filter:</source>
        <translation>&amp;Filter:</translation>
    </message>
    <message>
        <source>&amp;Private: show its icon, never a picture</source>
        <translation>&amp;Privat: das Symbol zeigen, nie ein Bild</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>FilterSubject</name>
    <message>
        <source>All applications</source>
        <translation>Alle Anwendungen</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
</context>
<context>
    <name>HotKeyText</name>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Spacebar</source>
        <translation>Leertaste</translation>
    </message>
</context>
<context>
    <name>Inspection</name>
    <message>
        <source>lumbrix: other applications&apos; windows cannot be read on this desktop</source>
        <translation>lumbrix: Auf diesem Desktop lassen sich die Fenster anderer Anwendungen nicht lesen</translation>
    </message>
    <message>
        <source>Point at an icon in the Dock, or at a window: Lumbrix looks in three seconds.</source>
        <translation>Zeigen Sie auf ein Symbol im Dock oder auf ein Fenster: Lumbrix sieht in drei Sekunden nach.</translation>
    </message>
    <message>
        <source>   &lt;- under the pointer</source>
        <translation>   &lt;- unter dem Zeiger</translation>
    </message>
    <message>
        <source>none for the application</source>
        <translation>keins für die Anwendung</translation>
    </message>
    <message>
        <source>none under the pointer</source>
        <translation>keins unter dem Zeiger</translation>
    </message>
    <message>
        <source>not an application</source>
        <translation>keine Anwendung</translation>
    </message>
    <message>
        <source>a minimised window</source>
        <translation>ein minimiertes Fenster</translation>
    </message>
    <message>
        <source>a running application</source>
        <translation>eine laufende Anwendung</translation>
    </message>
    <message>
        <source>an application, not running</source>
        <translation>eine Anwendung, die nicht läuft</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>in %1</translation>
    </message>
    <message>
        <source>process %1</source>
        <translation>Prozess %1</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>ausgeblendet</translation>
    </message>
    <message>
        <source>does not answer</source>
        <translation>antwortet nicht</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>none yet: Lumbrix has not been started before</source>
        <translation>noch keine: Lumbrix ist noch nie gestartet worden</translation>
    </message>
    <message>
        <source>none that leave anything out</source>
        <translation>keine, die etwas auslassen</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>minimised</source>
        <translation>minimiert</translation>
    </message>
    <message>
        <source>on all workspaces</source>
        <translation>auf allen Arbeitsflächen</translation>
    </message>
    <message>
        <source>on workspace %1</source>
        <translation>auf Arbeitsfläche %1</translation>
    </message>
    <message>
        <source>can be previewed</source>
        <translation>kann gezeigt werden</translation>
    </message>
    <message>
        <source>not previewed: %1</source>
        <translation>wird nicht gezeigt: %1</translation>
    </message>
    <message>
        <source>none: neither a Dock nor a panel that tells where its window buttons are</source>
        <translation>keins: weder ein Dock noch eine Leiste, die sagt, wo ihre Fensterknöpfe sind</translation>
    </message>
    <message>
        <source>edge: %1</source>
        <translation>Rand: %1</translation>
    </message>
    <message>
        <source>items: %1</source>
        <translation>Einträge: %1</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Screens</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>Dock</source>
        <translation>Dock</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Zeiger</translation>
    </message>
    <message>
        <source>There is no element under the pointer.</source>
        <translation>Unter dem Zeiger ist kein Element.</translation>
    </message>
    <message>
        <source>Previews</source>
        <translation>Vorschauen</translation>
    </message>
    <message>
        <source>None: Lumbrix does not run on this desktop.</source>
        <translation>Keine: Lumbrix läuft auf diesem Desktop nicht.</translation>
    </message>
    <message>
        <source>If it ran</source>
        <translation>Liefe es</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>For a bug report</source>
        <translation>Für einen Fehlerbericht</translation>
    </message>
    <message>
        <source> (Preferences &gt; %1)</source>
        <translation> (Einstellungen &gt; %1)</translation>
    </message>
    <message>
        <source>no Dock was recognised</source>
        <translation>es wurde kein Dock erkannt</translation>
    </message>
    <message>
        <source>all previews are turned off</source>
        <translation>alle Vorschauen sind ausgeschaltet</translation>
    </message>
    <message>
        <source>there is no icon and no window under the pointer</source>
        <translation>unter dem Zeiger ist weder ein Symbol noch ein Fenster</translation>
    </message>
    <message>
        <source>the Dock shows no icon for the application</source>
        <translation>das Dock zeigt kein Symbol für die Anwendung</translation>
    </message>
    <message>
        <source>there is no place for previews beside the icon</source>
        <translation>neben dem Symbol ist kein Platz für Vorschauen</translation>
    </message>
    <message>
        <source>a calendar shows today&apos;s events instead</source>
        <translation>ein Kalender zeigt stattdessen die Termine von heute</translation>
    </message>
    <message>
        <source>the icon is not an application&apos;s</source>
        <translation>das Symbol steht für keine Anwendung</translation>
    </message>
    <message>
        <source>the application does not run</source>
        <translation>die Anwendung läuft nicht</translation>
    </message>
    <message>
        <source>the application is not found among those that run</source>
        <translation>die Anwendung ist unter den laufenden nicht zu finden</translation>
    </message>
    <message>
        <source>no minimised window has the icon&apos;s title</source>
        <translation>kein minimiertes Fenster hat den Titel des Symbols</translation>
    </message>
    <message>
        <source>the application has no window</source>
        <translation>die Anwendung hat kein Fenster</translation>
    </message>
    <message>
        <source>every window is left out, see below</source>
        <translation>jedes Fenster wird ausgelassen, siehe unten</translation>
    </message>
    <message>
        <source>previews for icons in the Dock are turned off</source>
        <translation>Vorschauen für Symbole im Dock sind ausgeschaltet</translation>
    </message>
    <message>
        <source>%1 is held, which hides previews</source>
        <translation>%1 ist gedrückt, was Vorschauen ausblendet</translation>
    </message>
    <message>
        <source>applications with a single window are left out</source>
        <translation>Anwendungen mit nur einem Fenster werden ausgelassen</translation>
    </message>
    <message>
        <source>previews show only while %1 is held</source>
        <translation>Vorschauen erscheinen nur, solange %1 gedrückt ist</translation>
    </message>
    <message>
        <source>Not known: the application does not answer. Lumbrix goes on showing the windows it knew before.</source>
        <translation>Nicht bekannt: Die Anwendung antwortet nicht. Lumbrix zeigt weiter die Fenster, die es schon kannte.</translation>
    </message>
    <message>
        <source>None: %1.</source>
        <translation>Keine: %1.</translation>
    </message>
    <message>
        <source>One, of the minimised window that the icon stands for.</source>
        <translation>Eine, vom minimierten Fenster, für das das Symbol steht.</translation>
    </message>
    <message>
        <source>%1 of %2 windows.</source>
        <translation>%1 von %2 Fenstern.</translation>
    </message>
    <message>
        <source>its application does not answer (previewed only if Lumbrix knew it before)</source>
        <translation>seine Anwendung antwortet nicht (gezeigt nur, wenn Lumbrix es schon kannte)</translation>
    </message>
    <message>
        <source>its place and size cannot be read, or it is gone</source>
        <translation>sein Ort und seine Größe sind nicht zu lesen, oder es ist fort</translation>
    </message>
    <message>
        <source>its process is not known</source>
        <translation>sein Prozess ist nicht bekannt</translation>
    </message>
    <message>
        <source>the display server has no window that belongs to it</source>
        <translation>der Anzeigeserver hat kein Fenster, das dazugehört</translation>
    </message>
    <message>
        <source>it is not in the layer of ordinary windows</source>
        <translation>es liegt nicht in der Ebene gewöhnlicher Fenster</translation>
    </message>
    <message>
        <source>the display server has it in another place or size</source>
        <translation>beim Anzeigeserver hat es einen anderen Ort oder eine andere Größe</translation>
    </message>
    <message>
        <source>it is too small: both sides are below 50 points</source>
        <translation>es ist zu klein: beide Seiten sind kürzer als 50 Punkte</translation>
    </message>
    <message>
        <source>it has no title</source>
        <translation>es hat keinen Titel</translation>
    </message>
    <message>
        <source>the display server has it under another title</source>
        <translation>beim Anzeigeserver hat es einen anderen Titel</translation>
    </message>
    <message>
        <source>the filter “%1” leaves out every window of the application</source>
        <translation>der Filter „%1“ lässt jedes Fenster der Anwendung aus</translation>
    </message>
    <message>
        <source>it is closed: no workspace has it</source>
        <translation>es ist geschlossen: keine Arbeitsfläche hat es</translation>
    </message>
    <message>
        <source>it does not call itself a window</source>
        <translation>es nennt sich nicht Fenster</translation>
    </message>
    <message>
        <source>the filter “%1” leaves it out, as it is %2</source>
        <translation>der Filter „%1“ lässt es aus, da es %2 ist</translation>
    </message>
    <message>
        <source>it is no standard window, and there is nothing in it</source>
        <translation>es ist kein gewöhnliches Fenster, und es ist nichts darin</translation>
    </message>
    <message>
        <source>no window of its application is meant for docks</source>
        <translation>kein Fenster seiner Anwendung ist für Docks bestimmt</translation>
    </message>
    <message>
        <source>another window is known under its number</source>
        <translation>unter seiner Nummer ist ein anderes Fenster bekannt</translation>
    </message>
    <message>
        <source>windows of hidden applications are left out</source>
        <translation>Fenster ausgeblendeter Anwendungen werden ausgelassen</translation>
    </message>
    <message>
        <source>minimised windows are left out</source>
        <translation>minimierte Fenster werden ausgelassen</translation>
    </message>
    <message>
        <source>there are %1 previews already, which is as many as fit</source>
        <translation>es gibt schon %1 Vorschauen, mehr passen nicht</translation>
    </message>
    <message>
        <source>%1, the application&apos;s own</source>
        <translation>%1, der eigene der Anwendung</translation>
    </message>
    <message>
        <source>%1, that of all applications</source>
        <translation>%1, der aller Anwendungen</translation>
    </message>
    <message>
        <source>%1, built in</source>
        <translation>%1, eingebaut</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>not known whether it runs</source>
        <translation>nicht bekannt, ob es läuft</translation>
    </message>
    <message>
        <source>the Dock tells of no icons</source>
        <translation>das Dock nennt keine Symbole</translation>
    </message>
    <message>
        <source>it has just become another application&apos;s</source>
        <translation>es gehört seit eben zu einer anderen Anwendung</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>a tooltip</source>
        <translation>eine Kurzinfo</translation>
    </message>
    <message>
        <source>a preview</source>
        <translation>eine Vorschau</translation>
    </message>
    <message>
        <source>perhaps %1</source>
        <translation>vielleicht %1</translation>
    </message>
    <message>
        <source>which nothing turns off</source>
        <translation>nicht abschaltbar</translation>
    </message>
    <message>
        <source>off with: %1</source>
        <translation>aus mit: %1</translation>
    </message>
    <message>
        <source>Dock&apos;s own</source>
        <translation>Vom Dock</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>%1 × %2 pixels at %3, %4</source>
        <translation>%1 × %2 Bildpunkte bei %3, %4</translation>
    </message>
    <message>
        <source>a window</source>
        <translation>ein Fenster</translation>
    </message>
    <message>
        <source>a dialog</source>
        <translation>ein Dialog</translation>
    </message>
    <message>
        <source>a palette</source>
        <translation>eine Palette</translation>
    </message>
    <message>
        <source>a window that taskbars leave out</source>
        <translation>ein Fenster, das Fensterleisten auslassen</translation>
    </message>
    <message>
        <source>a window of another kind</source>
        <translation>ein Fenster anderer Art</translation>
    </message>
    <message>
        <source>no previews show while %1 is held</source>
        <translation>keine Vorschauen erscheinen, solange %1 gedrückt ist</translation>
    </message>
    <message>
        <source>what is left out shows while %1 is held</source>
        <translation>was ausgelassen wird, erscheint, solange %1 gedrückt ist</translation>
    </message>
    <message>
        <source>previews stay after the mouse has left</source>
        <translation>Vorschauen bleiben, wenn die Maus sie verlässt</translation>
    </message>
    <message>
        <source>Lumbrix&apos;s own icon has the windows of applications without one</source>
        <translation>das Symbol von Lumbrix hat die Fenster der Anwendungen ohne Symbol</translation>
    </message>
    <message>
        <source>previews wait for %1 s</source>
        <translation>Vorschauen warten %1 s</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>KeyboardLayout</name>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
</context>
<context>
    <name>KeyboardRow</name>
    <message>
        <source>Windows of %1</source>
        <translation>Fenster von %1</translation>
    </message>
    <message>
        <source>%1, %2 of %3</source>
        <translation>%1, %2 von %3</translation>
    </message>
    <message>
        <source>, minimised</source>
        <translation>, minimiert</translation>
    </message>
    <message>
        <source>, workspace %1</source>
        <translation>, Arbeitsfläche %1</translation>
    </message>
</context>
<context>
    <name>MoreEntry</name>
    <message>
        <source>+%1 more</source>
        <translation>+%1 weitere</translation>
    </message>
</context>
<context>
    <name>OwnDisplays</name>
    <message>
        <source>the preferences of Docklike (right click with Ctrl held)</source>
        <translation>die Einstellungen von Docklike (Rechtsklick bei gedrückter Strg-Taste)</translation>
    </message>
</context>
<context>
    <name>PreferencesAdvanced</name>
    <message>
        <source>Leave out:</source>
        <translation>Auslassen:</translation>
    </message>
    <message>
        <source>Windows of &amp;hidden applications</source>
        <translation>Fenster ausgeblendeter &amp;Anwendungen</translation>
    </message>
    <message>
        <source>&amp;Minimised windows</source>
        <translation>&amp;Minimierte Fenster</translation>
    </message>
    <message>
        <source>Applications with a single &amp;window</source>
        <translation>Anwendungen mit nur &amp;einem Fenster</translation>
    </message>
    <message>
        <source>&amp;But show them while holding</source>
        <translation>A&amp;ber zeigen mit gedrückter Taste</translation>
    </message>
    <message>
        <source>Key for showing them</source>
        <translation>Taste, um sie zu zeigen</translation>
    </message>
    <message>
        <source>Closing:</source>
        <translation>Schließen:</translation>
    </message>
    <message>
        <source>&amp;Keep previews open after the mouse has left</source>
        <translation>Vorschauen &amp;offen lassen, wenn die Maus sie verlässt</translation>
    </message>
    <message>
        <source>&amp;Close the previews after a click</source>
        <translation>Vorschauen nach einem &amp;Klick schließen</translation>
    </message>
    <message>
        <source>Pictures:</source>
        <translation>Bilder:</translation>
    </message>
    <message>
        <source>Use &amp;still pictures instead of live ones</source>
        <translation>&amp;Standbilder statt Live-Bildern</translation>
    </message>
    <message>
        <source>Each picture is then taken once, which is easier on a slow computer.</source>
        <translation>Jedes Bild wird dann nur einmal aufgenommen, was langsame Rechner schont.</translation>
    </message>
    <message>
        <source>Keep windows open on a mi&amp;ddle click on their previews</source>
        <translation>Fenster bei einem Mittelklick auf ihre &amp;Vorschau offen lassen</translation>
    </message>
</context>
<context>
    <name>PreferencesAppearance</name>
    <message>
        <source>St&amp;yle:</source>
        <translation>&amp;Stil:</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Borderless</source>
        <translation>Randlos</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Breite:</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>&amp;Distance from the Dock:</source>
        <translation>&amp;Abstand vom Dock:</translation>
    </message>
    <message>
        <source>Moving a slider shows a sample preview beside the Dock. A point (pt) is one pixel, or several where the desktop is drawn larger.</source>
        <translation>Beim Schieben eines Reglers erscheint eine Beispielvorschau neben dem Dock. Ein Punkt (pt) ist ein Bildpunkt, oder mehrere, wo die Arbeitsumgebung größer gezeichnet wird.</translation>
    </message>
    <message>
        <source>Previews:</source>
        <translation>Vorschauen:</translation>
    </message>
    <message>
        <source>Show a &amp;zoomed view while the mouse is on a preview</source>
        <translation>&amp;Vergrößern, solange die Maus auf einer Vorschau ist</translation>
    </message>
    <message>
        <source>&amp;Number the previews, and choose them with the number keys</source>
        <translation>Vorschauen &amp;nummerieren und mit den Zifferntasten wählen</translation>
    </message>
    <message>
        <source>Hide the &amp;close button</source>
        <translation>S&amp;chließknopf ausblenden</translation>
    </message>
    <message>
        <source>Hide the &amp;player and mail controls</source>
        <translation>Knöpfe für &amp;Wiedergabe und E-Mail ausblenden</translation>
    </message>
    <message>
        <source>Draw a &amp;bubble behind the previews</source>
        <translation>B&amp;lase hinter den Vorschauen zeichnen</translation>
    </message>
    <message>
        <source>Workspaces:</source>
        <translation>Arbeitsflächen:</translation>
    </message>
    <message>
        <source>Show the number of the work&amp;space that a window is on</source>
        <translation>Nummer der Arbeits&amp;fläche eines Fensters zeigen</translation>
    </message>
    <message>
        <source>Also where all windows are on the c&amp;urrent one</source>
        <translation>Auch wo alle Fenster auf der a&amp;ktuellen sind</translation>
    </message>
    <message>
        <source>Number c&amp;olour:</source>
        <translation>Farb&amp;e der Nummer:</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Number s&amp;ize:</source>
        <translation>&amp;Größe der Nummer:</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
</context>
<context>
    <name>PreferencesBadges</name>
    <message>
        <source>Window counts:</source>
        <translation>Fensterzähler:</translation>
    </message>
    <message>
        <source>&amp;Badge Dock Icons with the number of windows open</source>
        <translation>&amp;Zahl der offenen Fenster an Symbolen im Dock zeigen</translation>
    </message>
    <message>
        <source>&amp;Only applications with more than one window</source>
        <translation>&amp;Nur Anwendungen mit mehr als einem Fenster</translation>
    </message>
    <message>
        <source>&amp;Position:</source>
        <translation>&amp;Position:</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>&amp;Extra size:</source>
        <translation>Zusatz&amp;größe:</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>&amp;Colour:</source>
        <translation>&amp;Farbe:</translation>
    </message>
    <message>
        <source>Colour of window counts</source>
        <translation>Farbe der Fensterzähler</translation>
    </message>
    <message>
        <source>Counts suit a Dock that stays where it is: with magnification or hiding, icons move away from under them.</source>
        <translation>Zähler passen zu einem Dock, das bleibt, wo es ist: Mit Vergrößerung oder Ausblenden rücken die Symbole unter ihnen weg.</translation>
    </message>
</context>
<context>
    <name>PreferencesDockIcon</name>
    <message>
        <source>Dock icon:</source>
        <translation>Dock-Symbol:</translation>
    </message>
    <message>
        <source>&amp;Show Lumbrix&apos;s icon in the Dock</source>
        <translation>&amp;Symbol von Lumbrix im Dock zeigen</translation>
    </message>
    <message>
        <source>Lumbrix restarts when you change this.</source>
        <translation>Lumbrix startet neu, wenn Sie das ändern.</translation>
    </message>
    <message>
        <source>Other windows:</source>
        <translation>Andere Fenster:</translation>
    </message>
    <message>
        <source>Show &amp;other applications&apos; windows on Lumbrix&apos;s icon</source>
        <translation>Fenster &amp;anderer Anwendungen am Symbol von Lumbrix zeigen</translation>
    </message>
    <message>
        <source>Rest the mouse on Lumbrix&apos;s own icon to see the windows of applications that have no icon in the Dock.</source>
        <translation>Lassen Sie die Maus auf dem Symbol von Lumbrix ruhen, um die Fenster von Anwendungen zu sehen, die kein Symbol im Dock haben.</translation>
    </message>
</context>
<context>
    <name>PreferencesFilters</name>
    <message>
        <source>A filter decides which windows of an application are previewed, and whether by pictures. Password managers show their icon instead, unless a filter says otherwise.</source>
        <translation>Ein Filter bestimmt, welche Fenster einer Anwendung Vorschauen haben, und ob mit Bildern. Passwortverwaltungen zeigen statt dessen ihr Symbol, wenn kein Filter etwas anderes sagt.</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Hinzufügen…</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneral</name>
    <message>
        <source>Lumbrix:</source>
        <translation>Lumbrix:</translation>
    </message>
    <message>
        <source>&amp;Start at login</source>
        <translation>Bei der An&amp;meldung starten</translation>
    </message>
    <message>
        <source>T&amp;urn all previews off</source>
        <translation>A&amp;lle Vorschauen ausschalten</translation>
    </message>
    <message>
        <source>Show previews:</source>
        <translation>Vorschauen zeigen:</translation>
    </message>
    <message>
        <source>For icons in the &amp;Dock</source>
        <translation>Für Symbole im &amp;Dock</translation>
    </message>
    <message>
        <source>In the &amp;application switcher</source>
        <translation>Im &amp;Anwendungsumschalter</translation>
    </message>
    <message>
        <source>The switcher of this desktop cannot be read.</source>
        <translation>Der Umschalter dieser Oberfläche ist nicht lesbar.</translation>
    </message>
    <message>
        <source>Today&apos;s &amp;events for calendars</source>
        <translation>Bei Kalendern die &amp;Termine von heute</translation>
    </message>
    <message>
        <source>Choose &amp;Calendars…</source>
        <translation>&amp;Kalender auswählen…</translation>
    </message>
    <message>
        <source>&amp;Wait before showing:</source>
        <translation>&amp;Warten vor dem Zeigen:</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>&amp;No wait while previews are showing</source>
        <translation>&amp;Nicht warten, solange Vorschauen zu sehen sind</translation>
    </message>
    <message>
        <source>Wait before c&amp;losing:</source>
        <translation>Warten vor dem &amp;Schließen:</translation>
    </message>
    <message>
        <source>&amp;Keep previews while the mouse is on its way to them</source>
        <translation>Vorschauen &amp;offen halten, während die Maus zu ihnen unterwegs ist</translation>
    </message>
    <message>
        <source>Tray icon:</source>
        <translation>Symbol in der Leiste:</translation>
    </message>
    <message>
        <source>Use the &amp;monochrome icon</source>
        <translation>&amp;Einfarbiges Symbol verwenden</translation>
    </message>
    <message>
        <source>&amp;Hide the menu icon</source>
        <translation>Symbol in der Leiste aus&amp;blenden</translation>
    </message>
    <message>
        <source>With the icon hidden, start Lumbrix again to open these preferences.</source>
        <translation>Ist das Symbol ausgeblendet, öffnet ein erneuter Start von Lumbrix diese Einstellungen.</translation>
    </message>
    <message>
        <source>Only when it is installed.</source>
        <translation>Nur wenn es installiert ist.</translation>
    </message>
</context>
<context>
    <name>PreferencesHotkeys</name>
    <message>
        <source>&amp;Turn previews on or off:</source>
        <translation>Vorschauen ein- oder &amp;ausschalten:</translation>
    </message>
    <message>
        <source>Turn previews on or off</source>
        <translation>Vorschauen ein- oder ausschalten</translation>
    </message>
    <message>
        <source>&amp;Hide all previews:</source>
        <translation>Alle Vorschauen aus&amp;blenden:</translation>
    </message>
    <message>
        <source>Hide all previews</source>
        <translation>Alle Vorschauen ausblenden</translation>
    </message>
    <message>
        <source>&amp;Close all previewed windows:</source>
        <translation>Alle gezeigten Fenster &amp;schließen:</translation>
    </message>
    <message>
        <source>Close all previewed windows</source>
        <translation>Alle gezeigten Fenster schließen</translation>
    </message>
    <message>
        <source>Click a field, or press the space bar on it; then press the keys. Backspace clears.</source>
        <translation>Klicken Sie auf ein Feld oder drücken Sie darauf die Leertaste, dann drücken Sie die Tasten. Die Rücktaste löscht.</translation>
    </message>
    <message>
        <source>While a key is held:</source>
        <translation>Bei gedrückter Taste:</translation>
    </message>
    <message>
        <source>Show previews &amp;only while holding</source>
        <translation>&amp;Nur dann Vorschauen zeigen:</translation>
    </message>
    <message>
        <source>Key for showing previews</source>
        <translation>Taste zum Zeigen der Vorschauen</translation>
    </message>
    <message>
        <source>Show &amp;no previews while holding</source>
        <translation>Dann &amp;keine Vorschauen zeigen:</translation>
    </message>
    <message>
        <source>Key for hiding previews</source>
        <translation>Taste zum Ausblenden der Vorschauen</translation>
    </message>
    <message>
        <source>&amp;Previews of the active window:</source>
        <translation>&amp;Vorschauen des aktiven Fensters:</translation>
    </message>
    <message>
        <source>Previews of the active window</source>
        <translation>Vorschauen des aktiven Fensters</translation>
    </message>
</context>
<context>
    <name>PreferencesUpdates</name>
    <message>
        <source>Installed:</source>
        <translation>Installiert:</translation>
    </message>
    <message>
        <source>Newer versions:</source>
        <translation>Neuere Versionen:</translation>
    </message>
    <message>
        <source>They come from where you installed Lumbrix: your package manager or software centre offers them with its other updates.</source>
        <translation>Sie kommen von dort, woher Sie Lumbrix haben: Ihre Paketverwaltung oder Softwareverwaltung bietet sie mit den anderen Aktualisierungen an.</translation>
    </message>
    <message>
        <source>Lumbrix itself never connects to the network.</source>
        <translation>Lumbrix selbst verbindet sich nie mit dem Netz.</translation>
    </message>
</context>
<context>
    <name>PrefsController</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Filters</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Badges</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>Dock Icon</source>
        <translation>Dock-Symbol</translation>
    </message>
    <message>
        <source>Hotkeys</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>%1 – Lumbrix Preferences</source>
        <translation>%1 – Lumbrix-Einstellungen</translation>
    </message>
</context>
<context>
    <name>SGKeyCombo</name>
    <message>
        <source>(None)</source>
        <translation>(Keine)</translation>
    </message>
</context>
<context>
    <name>WindowServer</name>
    <message>
        <source>In a Wayland session only programs that use X (by XWayland) have previews, and only beside docks that use X too. To have previews of all windows, choose an X11 session when you log in.</source>
        <translation>In einer Wayland-Sitzung haben nur Programme Vorschauen, die X benutzen (durch XWayland), und nur an Docks, die es auch tun. Um Vorschauen aller Fenster zu haben, wählen Sie beim Anmelden eine X11-Sitzung.</translation>
    </message>
</context>
<context>
    <name>lumbrix::AboutWindow</name>
    <message>
        <source>About Lumbrix</source>
        <translation>Über Lumbrix</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Rest the mouse on an application&apos;s icon in the Dock, and live pictures of its windows appear beside it. Click one and that window comes forward; its close button closes it.</source>
        <translation>Lassen Sie die Maus auf dem Symbol einer Anwendung im Dock ruhen, und daneben erscheinen Live-Vorschauen ihrer Fenster. Klicken Sie auf eine, kommt das Fenster nach vorn; ihr Schließknopf schließt es.</translation>
    </message>
    <message>
        <source>© 2026 The Lumbrix developers
Free software under the MIT licence</source>
        <translation>© 2026 The Lumbrix developers
Freie Software unter der MIT-Lizenz</translation>
    </message>
    <message>
        <source>Bugs and thanks are welcome at
%1</source>
        <translation>Fehlerberichte und Dank nimmt entgegen:
%1</translation>
    </message>
</context>
<context>
    <name>lumbrix::ColorWell</name>
    <message>
        <source>Colour of Window Counts – Lumbrix Preferences</source>
        <translation>Farbe der Fensterzähler – Lumbrix-Einstellungen</translation>
    </message>
</context>
<context>
    <name>lumbrix::FilterRows</name>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>%1, private</source>
        <translation>%1, privat</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>lumbrix::HotKeyRecorders</name>
    <message>
        <source>Chosen twice: only one of them works.</source>
        <translation>Doppelt gewählt: Nur eins davon wirkt.</translation>
    </message>
    <message>
        <source>Taken: another program has these keys.</source>
        <translation>Vergeben: Ein anderes Programm hat diese Tasten.</translation>
    </message>
</context>
<context>
    <name>lumbrix::IgnoreTable</name>
    <message>
        <source>Add Filter – Lumbrix Preferences</source>
        <translation>Filter hinzufügen – Lumbrix-Einstellungen</translation>
    </message>
    <message>
        <source>Change Filter – Lumbrix Preferences</source>
        <translation>Filter ändern – Lumbrix-Einstellungen</translation>
    </message>
</context>
<context>
    <name>lumbrix::LumbrixController</name>
    <message>
        <source>Hide the menu icon</source>
        <translation>Symbol in der Leiste ausblenden</translation>
    </message>
    <message>
        <source>You won&apos;t be able to easily access the Preferences and About window with the menu icon hidden. If you want to reach either of them, run Lumbrix from within Finder.</source>
        <translation>Ohne das Symbol in der Leiste sind die Einstellungen von Lumbrix nicht mehr so leicht zu erreichen. Um sie zu öffnen, starten Sie Lumbrix noch einmal.</translation>
    </message>
    <message>
        <source>Okay</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Relaunch required</source>
        <translation>Neustart nötig</translation>
    </message>
    <message>
        <source>Lumbrix needs to restart in order for this setting to take effect.</source>
        <translation>Lumbrix muss neu starten, damit diese Einstellung wirkt.</translation>
    </message>
    <message>
        <source>Apply and Relaunch</source>
        <translation>Übernehmen und neu starten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Badge Dock Icons</source>
        <translation>Fensterzähler</translation>
    </message>
    <message>
        <source>Please note that this feature doesn&apos;t work very well when Dock Magnification/Hiding are enabled.</source>
        <translation>Fensterzähler passen zu einem Dock, das bleibt, wo es ist. Ihres vergrößert Symbole oder blendet sie aus; sie rücken dann unter ihren Zählern weg.</translation>
    </message>
    <message>
        <source>Lumbrix: previews are turned off</source>
        <translation>Lumbrix: Die Vorschauen sind ausgeschaltet</translation>
    </message>
    <message>
        <source>You need to enable support for assistive devices.

Support for assistive devices is a Mac OS feature which allows applications to interact with one another. In this case, it allows Lumbrix to extend Dock functionalities.

You can enable support for assistive devices by opening the Universal Access pane in System Preferences. The checkbox you are looking for there is called &quot;Enable access for assistive devices&quot;.

If you want, Lumbrix can enable it for you.</source>
        <translation>Lumbrix braucht die Barrierefreiheit Ihrer Arbeitsumgebung.

Durch sie erfahren Programme voneinander. Lumbrix erfährt so, welche Symbole ein Dock und welche Fenster ein Programm hat.

Sie schalten sie in den Einstellungen Ihrer Arbeitsumgebung unter „Barrierefreiheit“ ein.

Wenn Sie möchten, kann Lumbrix sie für Sie einschalten.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Die Barrierefreiheit ist ausgeschaltet</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Welcome to Lumbrix!</source>
        <translation>Willkommen bei Lumbrix!</translation>
    </message>
    <message>
        <source>Hello there! You can now hover your mouse over applications in the Dock and see window previews. There is also a new icon in your menu bar, use it to control Lumbrix.

Lumbrix works great by default, but if you want to change something, check out the Preferences.

Note to users of Spaces: Lumbrix has to see a window at least once before being able to display previews for it. 

This is usually not a problem since you would have Lumbrix already running when the windows are created. However, this is the first time you run Lumbrix and you might have some windows already open.</source>
        <translation>Lassen Sie die Maus auf dem Symbol einer Anwendung im Dock oder auf ihrem Knopf in einer Leiste ruhen: Daneben erscheinen Vorschauen ihrer Fenster. Klicken Sie auf eine, und das Fenster kommt nach vorn.

Das Symbol von Lumbrix in der Leiste hat ein Menü, das Vorschauen aus- und einschaltet und diese Einstellungen öffnet. Wo es keinen Platz für Symbole gibt, öffnet sie ein erneuter Start von Lumbrix.

Ein Fenster, das Lumbrix noch nicht gesehen hat, weil es minimiert oder auf einer anderen Arbeitsfläche ist, zeigt das Symbol seiner Anwendung, bis es einmal zu sehen war.</translation>
    </message>
    <message>
        <source>Lumbrix could not be relaunched</source>
        <translation>Lumbrix konnte nicht neu gestartet werden</translation>
    </message>
    <message>
        <source>The icon in the Dock will change the next time you start Lumbrix.</source>
        <translation>Das Symbol im Dock ändert sich, wenn Sie Lumbrix das nächste Mal starten.</translation>
    </message>
    <message>
        <source>Not every window has a preview here</source>
        <translation>Nicht jedes Fenster hat hier eine Vorschau</translation>
    </message>
    <message>
        <source>To pick a preview by a key, hold %1 and press the number that is on it.</source>
        <translation>Um eine Vorschau mit einer Taste zu wählen, halten Sie %1 und drücken die Ziffer, die auf ihr steht.</translation>
    </message>
    <message>
        <source>From now on Lumbrix starts when you log in. To change that, uncheck “Start at login” in the General pane of these preferences.</source>
        <translation>Von jetzt an startet Lumbrix bei der Anmeldung. Um das zu ändern, schalten Sie in diesen Einstellungen unter „Allgemein“ das Feld „Bei der Anmeldung starten“ aus.</translation>
    </message>
</context>
<context>
    <name>lumbrix::SRRecorderControl</name>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Press the new keys…</source>
        <translation>Neue Tasten drücken…</translation>
    </message>
    <message>
        <source>Hold %1 or the like too</source>
        <translation>Auch %1 o. Ä. halten</translation>
    </message>
    <message>
        <source>This key cannot be used</source>
        <translation>Taste nicht möglich</translation>
    </message>
    <message>
        <source>Click to record</source>
        <translation>Zum Aufnehmen klicken</translation>
    </message>
</context>
<context>
    <name>lumbrix::StatusMenu</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über Lumbrix</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Vorschauen einschalten</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Vorschauen ausschalten</translation>
    </message>
</context>
</TS>
