# What is typed, taken back, taken along and dropped.
> quietly start
> keys Ctrl+A Delete
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト:
> type ab cd
[Tarumine] EditableText テキスト: “ab cd” | caret: 5
> keys Ctrl+Tab Return Shift+Return
[Tarumine] EditableText テキスト: “ab cd⇥⏎⏎” | caret: 8
> type 東京都に行った。
[Tarumine] EditableText テキスト: “ab cd⇥⏎⏎東京都に行った。” | caret: 16
> keys Ctrl+Left Ctrl+Left Ctrl+Left
[Tarumine] caret: 13
> keys Ctrl+Shift+Right
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 13 to 14
> keys Ctrl+Delete
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “ab cd⇥⏎⏎東京都に行た。” | caret: 13
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “ab cd⇥⏎⏎東京都に行った。” | caret: 14
> keys Ctrl+Y
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “ab cd⇥⏎⏎東京都に行た。” | caret: 13
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “ab cd⇥⏎⏎東京都に行った。” | caret: 14
> keys Ctrl+Z Ctrl+Z Ctrl+Z
[Tarumine] EditableText テキスト: “ab cd⇥⏎⏎東京都に行” | caret: 13
> keys Ctrl+Y
[Tarumine] EditableText テキスト: “ab cd⇥⏎⏎東京都に行っ” | caret: 14
> select 0 5
[Tarumine] 編集/ disabled: | caret: 0 to 5
> choose 編集/コピー
[Tarumine] 編集/ disabled: 貼り付け(&P) | clipboard: ab cd
> keys Ctrl+X
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C), 貼り付け(&P) | EditableText テキスト: “⇥⏎⏎東京都に行っ” | caret: 0
> keys Ctrl+V Ctrl+V
[Tarumine] EditableText テキスト: “ab cdab cd⇥⏎⏎東京都に行っ” | caret: 10
> clipboard https://tarumine.example/(a)
clipboard: https://tarumine.example/(a)
> keys Ctrl+V
[Tarumine] EditableText テキスト: “ab cdab cdhttps://tarumine.example/(a)⇥⏎⏎東京都に行っ” | caret: 38
> clipboard <b>b</b>\n二
clipboard: <b>b</b>⏎二
> keys Ctrl+V
[Tarumine] EditableText テキスト: “ab cdab cdhttps://tarumine.example/(a)<b>b</b>⏎二⇥⏎⏎東京都に行っ” | caret: 48
> choose 編集/すべてを選択
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 57
> keys Delete
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: | caret: 0
> type   ab　cd
[Tarumine] EditableText テキスト: “  ab　cd” | caret: 7
> keys Return
[Tarumine] EditableText テキスト: “  ab　cd⏎” | caret: 8
> type   ef
[Tarumine] EditableText テキスト: “  ab　cd⏎  ef” | caret: 12
> keys Ctrl+Left Ctrl+Left
[Tarumine] caret: 8
> keys Ctrl+Backspace
[Tarumine] EditableText テキスト: “  ab　cd  ef” | caret: 7
> keys Ctrl+Backspace
[Tarumine] EditableText テキスト: “  ab　  ef” | caret: 5
> compose にほん
> type 日本
[Tarumine] EditableText テキスト: “  ab　日本  ef” | caret: 7
> keys Ctrl+A
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 11
> type 吾輩は猫である。名前はまだ無い。
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “吾輩は猫である。名前はまだ無い。” | caret: 16
> drag double 6 3
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 7 to 3
> drag double 3 9
[Tarumine] caret: 3 to 10
> drag 2 4
[Tarumine] caret: 2 to 4
> keys Shift+F10
[menu]: over Tarumine, in front | : 元に戻す(&U) Ctrl+Z, やり直す(&R) Ctrl+Y, 切り取り(&T) Ctrl+X, コピー(&C) Ctrl+C, 貼り付け(&P) Ctrl+V, すべてを選択(&A) Ctrl+A
disabled: やり直す(&R) | checked:
> choose コピー
clipboard: は猫
> keys Esc
no [menu]
> keys Ctrl+End Ctrl+V
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “吾輩は猫である。名前はまだ無い。は猫” | caret: 18
> drop file nowhere.txt
[Tarumine] caret: 1 | said: dropped: IgnoreAction
> drop ドロップ
[Tarumine] EditableText テキスト: “吾ドロップ輩は猫である。名前はまだ無い。は猫” | caret: 5 | said: dropped: MoveAction
> drop https://tarumine.example/
[Tarumine] EditableText テキスト: “吾https://tarumine.example/ドロップ輩は猫である。名前はまだ無い。は猫” | caret: 26 | said: dropped: MoveAction
> quietly clipboard 130000 times 吾輩は##\n ; keys Ctrl+V until 吾輩は1⏎
> keys Esc
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “吾https://tarumine.example/ドロップ輩は猫である。名前はまだ無い。は猫” | caret: 26
> keys Ctrl+V until ドロップ輩は猫である。名前はまだ無い。は猫”
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C)
[Tarumine] EditableText テキスト: “吾https://tarumine.example/吾輩は1⏎吾輩は2⏎吾輩は3⏎吾輩は4⏎吾輩は…は130000⏎ドロップ輩は猫である。名前はまだ無い。は猫” (1188944) | caret: 1188921
[Tarumine] scrolled to: 吾輩は129996⏎吾輩は129997⏎吾輩は129998⏎吾輩は129999⏎吾輩は130000⏎ドロップ輩は猫である。名前はまだ無い。は猫
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “吾https://tarumine.example/ドロップ輩は猫である。名前はまだ無い。は猫” | caret: 26 | no [Tarumine] scrolled to
