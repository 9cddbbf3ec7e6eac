"""What `driver.py` plays, by name. CMakeLists.txt beside it reads the names."""

SCENARIOS = {
"ArgumentsAreAnsweredOrRefused": r"""
  start --version               | ends 0 Kestrava 1.0.0
  start --tray                  | ends 2 kestrava: unknown argument --tray
""",
"PreferencesAreShownTakenAndLeft": r"""
  settings Interval=30 Tips=0 Startup=1
  start                         | at main
  keys alt+c p                  | at preferences
  keys ctrl+a 7 Escape          | at main
  keys alt+c p                  | at preferences
  keys ctrl+a 7 7 Return        | at main; setting Interval=77; setting Tips=0; setting Startup=1
  keys alt+c p                  | at preferences
  keys Tab; look clear
  keys space                    | differs clear; look ticked
  keys space                    | same clear
  keys space Return             | at main; setting Tips=1
  keys alt+c p                  | at preferences
  keys Tab                      | same ticked
  keys shift+Tab x Return       | at message
  keys Escape                   | at preferences
  keys Escape                   | at main
  keys alt+F4                   | ends 0
""",
"TheFirstStartAndListsThatAreMissingOrBroken": r"""
  start                         | at main; look empty
  click remove; click check; keys Tab; keys alt+f Up Up Up Return | at main; setting AutoLoadList=1
  keys alt+f; look ticked
  keys Up Up Up Return                     | setting AutoLoadList=0
  keys alt+f                    | differs ticked
  keys Up Up Up Return                     | setting AutoLoadList=1
  keys alt+f                    | same ticked
  keys x                        | ends 0
  settings AutoLoadList=1 LastListFile=~/missing.kvl
  start                         | at main; same empty
  signal TERM                   | ends 0; setting LastListFile=~/missing.kvl
  list ~/missing.kvl A,0.0.0.0,x,Enabled,y broken
  start                         | at main; differs empty
  click check                   | lamps red red
  signal TERM                   | ends 0
""",
"TheFileDialogsAndTheQuestion": r"""
  list ~/old.kvl A,127.0.0.1,Online,Enabled,y Bü,0.0.0.0,Offline,Disabled,ÿ
  start                         | at main; look empty
  keys alt+f l                  | at Open
  keys Escape                   | at main; same empty
  keys alt+f l                  | at Open
  type ~/old.kvl; keys Return   | at main; differs empty
  keys alt+f s                  | at Save As
  keys Escape                   | at main
  keys alt+f s                  | at Save As
  type new.kvl; keys Return     | at message; file ~/program/Lists/new.kvl A,127.0.0.1,Online,Enabled,y Bü,0.0.0.0,Offline,Disabled,ÿ
  keys Return                   | at main
  list ~/program/Lists/new.kvl
  keys alt+f s                  | at Save As
  type new.kvl; keys Return     | at Overwrite File ?
  keys Escape                   | at Save As; file ~/program/Lists/new.kvl
  type new.kvl; keys Return     | at Overwrite File ?
  keys alt+y                    | at message; file ~/program/Lists/new.kvl A,127.0.0.1,Online,Enabled,y Bü,0.0.0.0,Offline,Disabled,ÿ
  keys Escape                   | at main
  keys alt+f s                  | at Save As
  type new.kvl; keys Return     | at Overwrite File ?
  signal INT                    | ends 0; setting LastListFile=~/program/Lists/new.kvl
""",
"BytesThatAreNoText": r"""
  keyboard fr
  list ~/é.kvl ÿ,0.0.0.0,x,Enabled,y
  settings AutoLoadList=1
  start                         | at main
  keys alt+f l                  | at Open
  type ~/é.kvl; keys Return     | at main
  click check                   | lamps red
  signal TERM                   | ends 0; setting LastListFile=@ByteArray(~/\xe9.kvl)
  list ~/é.kvl ÿ,127.0.0.1,x,Enabled,y
  start                         | at main
  click check                   | lamps green
  signal TERM                   | ends 0; setting LastListFile=@ByteArray(~/\xe9.kvl)
""",
"CellsRowsAndTheirQuestions": r"""
  start                         | at main
  click add                     | at new
  keys Return                   | at message
  keys Escape                   | at new
  keys Escape                   | at main
  keys alt+c Return           | at new
  type A; keys Tab; type 0.0.0.0; keys Return    | at main
  keys alt+c Return           | at new
  type B; keys Tab; type 127.0.0.1; keys Return  | at main
  click check                   | lamps red green
  keys shift+Tab shift+Tab Home Right Right Right; look enabled
  keys Return                   | at main; differs enabled; look disabled
  keys Return                   | at main; same enabled
  keys Return                   | at main; same disabled
  keys Left Left Return         | at Connection Address
  type 127.0.0.1; keys Escape   | at main; look before
  keys Return                   | at Connection Address
  type 127.0.0.1; keys Return   | at main; differs before
  click check                   | lamps red green
  click remove                  | at Remove Connections
  keys space; look ticked; keys space | differs ticked; look clear
  keys space                    | differs clear
  keys Escape                   | at main; lamps red green
  click remove                  | at Remove Connections
  keys space Return             | at main; lamps green
  keys alt+f n                  | at main; lamps
  signal TERM                   | ends 0
""",
"AHostOfIconsAndItsMenu": r"""
  settings Tray=1
  freeze_bus; start             | up icon
  thaw_bus; serve tray          | up; offered Restore Kestrava, E_xit; tip Kestrava
  leave tray                    | up icon
  silent RegisterStatusNotifierItem; serve tray | up icon
  leave tray; silent; serve tray | up
  ask_for_menu                  | up menu
  keys Down Return              | at main; up main
  minimize main                      | up; offered Restore Kestrava, E_xit
  pick E_xit                    | ends 0
""",
"AnEmbeddingTrayThatVanishes": r"""
  settings Tray=1
  embed; start                  | up tray; painted tray
  click_window 3 tray           | up tray menu
  keys Down Return              | at main; up main tray
  keys alt+f                    | up main menu tray; painted menu
  look all; keys Escape         | up main tray
  keys alt+f Up Up Return       | up tray
  click_window 3 tray           | up tray menu
  keys Down Return              | at main; up main tray
  keys alt+f                    | up main menu tray; same all
  keys Escape                   | up main tray
  keys alt+c Up Return          | at preferences
  click_window 3 tray           | up main preferences tray menu
  unembed                       | up main preferences menu icon; painted icon
  keys Escape                   | up main preferences icon
  keys Escape                   | at main
  minimize main                      | up icon
  click_window 3 icon           | up icon menu
  keys Up Return                | ends 0
""",
"AReportIsANotification": r"""
  list ~/a.kvl silent silent silent silent silent
  settings AutoLoadList=1 LastListFile=~/a.kvl
  serve tray notifications
  release_pass; start           | at main
  click check                   | lamps red red red red red
  hold_pass; click check; minimize main | up
  release_pass                  | notified 5 of your Connections, closed
  click_notification 40; item Menu | up
  pick Restore Kestrava         | at main
  hold_pass; click check; minimize main | up
  release_pass                  | notified 5 of your Connections, closed, 5 of your Connections
  forge_click 41; item Menu     | up
  click_notification 41         | at main
  signal TERM                   | ends 0; notified 5 of your Connections, closed, 5 of your Connections, closed
""",
"AServiceThatIsSilentIsReplacedByABalloon": r"""
  list ~/a.kvl silent silent silent silent silent
  settings AutoLoadList=1 LastListFile=~/a.kvl
  serve notifications; silent GetCapabilities
  start                         | at main
  click check; minimize main; release_pass | up balloon icon; painted balloon; up icon
  signal TERM                   | ends 0
  silent Notify
  hold_pass; start              | at main
  click check; minimize main; release_pass | up balloon icon
  answer_late                   | notified 5 of your Connections, closed
  silent Notify; click_window 1 balloon | at main
  hold_pass; click check         | at main
  keys alt+F4                   | ends 0
""",
"ATimedPassReports": r"""
  list ~/a.kvl dead here
  settings Interval=1 Tray=1 AutoLoadList=1 LastListFile=~/a.kvl
  serve notifications
  avoid_end_of_minute; start    | up icon
  notified the a&lt;b Connection, closed
  click_window 3 icon           | up icon menu
  keys Down Return              | at main; lamps red green
  keys alt+F4                   | ends 0
""",
"ADialogAndItsBoxGoToTheTrayWithTheWindow": r"""
  start                         | at main
  click add                     | at new
  keys Return                   | at message
  minimize main                 | up icon
  click_window 3 icon           | up icon menu
  keys Down Return              | up main new message icon; at message
  minimize message              | up icon
  click_window 3 icon           | up icon menu
  keys Down Return              | up main new message icon; at message
  keys Return                   | at new
  keys Escape                   | at main
  keys alt+f x                  | ends 0
""",
"HelpIsOpenedInTheBrowser": r"""
  start                         | at main; has_icon main
  keys F1                       | opened 1 http://www.kestrava.example/KVManual.html
  keys F2                       | at About Kestrava
  keys Tab Return               | opened 1 http://www.kestrava.example/KVManual.html 1 http://www.kestrava.example
  keys Escape                   | at main
  signal HUP                    | ends 0
""",
}
