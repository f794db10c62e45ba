# The picker and what it starts.
> file share/applications/aa.desktop [Desktop Entry]\nType=Application\nName=AA Web\nCategories=WebBrowser;\nIcon=web\nExec=told %u\n
keyboard: nowhere | printed: 0: | clipboard:
> file share/applications/bb.desktop [Desktop Entry]\nType=Application\nName=BB Web\nCategories=Network;WebBrowser;\nExec=told --new "b b"\n
> file share/applications/cc.desktop [Desktop Entry]\nType=Application\nName=CC\nNoDisplay=true\nCategories=WebBrowser;\nExec=told\n
> file share/applications/dd.desktop [Desktop Entry]\nType=Application\nName=DD\nOnlyShowIn=X;\nCategories=WebBrowser;\nExec=told\n
> file share/applications/ee.desktop [Desktop Entry]\nType=Application\nName=EE\nCategories=WebBrowser;\nExec=told\n
> quietly file data/applications/ee.desktop [Desktop Entry]\nType=Application\nName=EE\nHidden=true\nCategories=WebBrowser;\nExec=told\n
> quietly file told #!/bin/sh\n(echo "$@"; env | grep -E '^(LC_|FC_|GLIBC)'; grep SigIgn /proc/self/status | tail -c 5; test $(ps -o sid= $$) = $$ && echo apart; echo end) >"$HOME/said $1"
> quietly file xdg-open #!/bin/sh\n(echo "$@"; grep SigIgn /proc/self/status | tail -c 5; env | grep -E 'GLIBC|LC_'; test $(ps -o sid= $$) = $$ && echo apart; echo end) >"$HOME/opened"
> quietly start
> do SetFocus ブラウザを選択
keyboard: ComboBox ブラウザを選択 in Tarumine
> keys End Home
> press 起動 until apart⏎end
keyboard: Button 起動 in Tarumine | file said : ⏎LC_ALL=C.UTF-8⏎0000⏎apart⏎end⏎
> do SetFocus ブラウザを選択
keyboard: ComboBox ブラウザを選択 in Tarumine
> keys Down
[Tarumine] ComboBox ブラウザを選択: BB Web, “BB Web”, AA Web, BB Web
> press 起動 until --new b b⏎LC_ALL=C.UTF-8⏎0000⏎apart⏎end
keyboard: Button 起動 in Tarumine | file said --new: --new b b⏎LC_ALL=C.UTF-8⏎0000⏎apart⏎end⏎
> choose ヘルプ/オンラインヘルプ
> choose ヘルプ/Tarumine ヘルプ until apart⏎end
file opened: https://tarumine.example⏎0000⏎LC_ALL=C.UTF-8⏎apart⏎end⏎
> do SetFocus ブラウザを選択
keyboard: ComboBox ブラウザを選択 in Tarumine
> keys Alt+Down
[Tarumine] ComboBox ブラウザを選択: BB Web, “BB Web”, open, AA Web, BB Web | []: over Tarumine, in front | List ブラウザを選択: “ブラウザを選択”, clipped, partly hidden
keyboard: List ブラウザを選択 in
> keys Esc
[Tarumine] ComboBox ブラウザを選択: BB Web, “BB Web”, AA Web, BB Web | keyboard: ComboBox ブラウザを選択 in Tarumine | no []
