<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Only what reads otherwise on this platform than in the sources. Written by hand. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>FilterLevel</name>
    <message>
        <source>TotalFinder</source>
        <translation>File manager</translation>
    </message>
</context>
<context>
    <name>PreferencesBadges</name>
    <message>
        <source>&amp;Badge Dock Icons with the number of windows open</source>
        <translation>&amp;Show the number of open windows on icons in the Dock</translation>
    </message>
</context>
<context>
    <name>PreferencesGeneral</name>
    <message>
        <source>&amp;Hide the menu icon</source>
        <translation>&amp;Hide the tray icon</translation>
    </message>
</context>
<context>
    <name>lumbrix::LumbrixController</name>
    <message>
        <source>Hide the menu icon</source>
        <translation>Hide the tray icon</translation>
    </message>
    <message>
        <source>You won&apos;t be able to easily access the Preferences and About window with the menu icon hidden. If you want to reach either of them, run Lumbrix from within Finder.</source>
        <translation>Without its icon in the tray, the preferences of Lumbrix are not within easy reach. To open them, start Lumbrix again.</translation>
    </message>
    <message>
        <source>Okay</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Badge Dock Icons</source>
        <translation>Window counts</translation>
    </message>
    <message>
        <source>Please note that this feature doesn&apos;t work very well when Dock Magnification/Hiding are enabled.</source>
        <translation>Window counts suit a Dock that stays where it is. Yours magnifies or hides its icons, which then move away from under their counts.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Accessibility is turned off</translation>
    </message>
    <message>
        <source>You need to enable support for assistive devices.

Support for assistive devices is a Mac OS feature which allows applications to interact with one another. In this case, it allows Lumbrix to extend Dock functionalities.

You can enable support for assistive devices by opening the Universal Access pane in System Preferences. The checkbox you are looking for there is called &quot;Enable access for assistive devices&quot;.

If you want, Lumbrix can enable it for you.</source>
        <translation>Lumbrix needs the accessibility of your desktop.

Accessibility lets programs learn of one another. By it Lumbrix learns which icons a dock has and which windows a program has.

You can turn it on in the accessibility settings of your desktop.

If you want, Lumbrix can turn it on for you.</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Turn on</translation>
    </message>
    <message>
        <source>Hello there! You can now hover your mouse over applications in the Dock and see window previews. There is also a new icon in your menu bar, use it to control Lumbrix.

Lumbrix works great by default, but if you want to change something, check out the Preferences.

Note to users of Spaces: Lumbrix has to see a window at least once before being able to display previews for it. 

This is usually not a problem since you would have Lumbrix already running when the windows are created. However, this is the first time you run Lumbrix and you might have some windows already open.</source>
        <translation>Rest the mouse on an application&apos;s icon in the Dock, or on its button in a panel: previews of its windows appear beside it. Click one, and its window comes forward.

The icon of Lumbrix in the tray has a menu that turns previews off and on and opens these preferences. Where there is no tray, start Lumbrix again to open them.

A window that Lumbrix has not seen yet, because it is minimised or on another workspace, shows its application&apos;s icon until it has been on the screen once.</translation>
    </message>
</context>
<context>
    <name>lumbrix::StatusMenu</name>
    <message>
        <source>About</source>
        <translation>About Lumbrix</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Turn previews on</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Turn previews off</translation>
    </message>
</context>
</TS>
