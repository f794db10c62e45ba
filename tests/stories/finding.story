# The find bar.
> quietly start
> keys Ctrl+A Delete
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト:
> type まつ、松。マツはﾏﾂ。待つmatsu MATSU
[Tarumine] EditableText テキスト: “まつ、松。マツはﾏﾂ。待つmatsu MATSU” | caret: 24
> keys Ctrl+Home Ctrl+F
[Tarumine] caret: 0 | EditableText 検索: 検索 | Button 前へ: | Button 次へ: | CheckBox 大文字と小文字を区別: | Button 閉じる: | keyboard: EditableText 検索 in Tarumine
> type ま
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 1 | marks: 0 5 8 | EditableText 検索: 検索, “ま” | label #5: 3 件中 1 件目 | said: 3 件中 1 件目
> type つ
[Tarumine] caret: 0 to 2 | EditableText 検索: 検索, “まつ” | said: 3 件中 1 件目
> keys F3
[Tarumine] caret: 5 to 7 | label #5: 3 件中 2 件目 | said: 3 件中 2 件目
> keys F3
[Tarumine] caret: 8 to 10 | label #5: 3 件中 3 件目 | said: 3 件中 3 件目
> keys Return
[Tarumine] caret: 0 to 2 | label #5: 3 件中 1 件目（先頭から検索） | said: 3 件中 1 件目（先頭から検索）
> keys Shift+Return
[Tarumine] caret: 8 to 10 | label #5: 3 件中 3 件目（末尾から検索） | said: 3 件中 3 件目（末尾から検索）
> keys Shift+F3
[Tarumine] caret: 5 to 7 | label #5: 3 件中 2 件目 | said: 3 件中 2 件目
> keys Ctrl+G
[Tarumine] caret: 8 to 10 | label #5: 3 件中 3 件目 | said: 3 件中 3 件目
> keys Backspace
[Tarumine] caret: 8 to 9 | EditableText 検索: 検索, “ま” | said: 3 件中 3 件目
> desk #202326
[Tarumine] marks: 0 dark 5 dark 8 dark
> desk #efefef
[Tarumine] marks: 0 5 8
> keys Ctrl+A
> do SetFocus テキスト
keyboard: EditableText テキスト in Tarumine
> keys Tab
keyboard: EditableText 検索 in Tarumine
> keys Shift+Tab
keyboard: EditableText テキスト in Tarumine
> keys Tab Tab
keyboard: Button 前へ in Tarumine
> keys Shift+Tab
keyboard: EditableText 検索 in Tarumine
> keys Ctrl+A
> type matsu
[Tarumine] caret: 13 to 18 | marks: 13 19 | EditableText 検索: 検索, “matsu” | label #5: 2 件中 1 件目 | said: 2 件中 1 件目
> type z
[Tarumine] marks: | EditableText 検索: 検索, “matsuz” | label #5: 見つかりません | said: 見つかりません
> keys Esc
keyboard: EditableText テキスト in Tarumine | no [Tarumine] EditableText 検索 | no [Tarumine] Button 前へ | no [Tarumine] Button 次へ | no [Tarumine] label #5
no [Tarumine] CheckBox 大文字と小文字を区別 | no [Tarumine] Button 閉じる
> keys F3
[Tarumine] EditableText 検索: 検索, “matsuz” | Button 前へ: | Button 次へ: | label #5: 見つかりません | CheckBox 大文字と小文字を区別: | Button 閉じる: | said: 見つかりません
> keys Ctrl+Home
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | caret: 0
> keys F3
said: 見つかりません
> select 0 2
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 2
> keys Ctrl+F
[Tarumine] marks: 0 5 8 | EditableText 検索: 検索, “まつ” | label #5: 3 件中 1 件目 | keyboard: EditableText 検索 in Tarumine | said: 3 件中 1 件目
> do SetFocus テキスト
keyboard: EditableText テキスト in Tarumine
> keys Ctrl+End
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | caret: 24
> type まつ
[Tarumine] EditableText テキスト: “まつ、松。マツはﾏﾂ。待つmatsu MATSUまつ” | caret: 26 | marks: 0 5 8 24
> keys Ctrl+F
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 2 | label #5: 4 件中 1 件目（先頭から検索） | keyboard: EditableText 検索 in Tarumine | said: 4 件中 1 件目（先頭から検索）
> keys Ctrl+A
> type まつ、
[Tarumine] caret: 0 to 3 | marks: 0 | EditableText 検索: 検索, “まつ、” | label #5: 1 件中 1 件目（先頭から検索） | said: 1 件中 1 件目（先頭から検索）
> keys F3
said: 1 件中 1 件目（先頭から検索）
> keys Ctrl+F
[Tarumine] label #5: 1 件中 1 件目 | said: 1 件中 1 件目
> press 大文字と小文字を区別
[Tarumine] CheckBox 大文字と小文字を区別: checked | keyboard: CheckBox 大文字と小文字を区別 in Tarumine | said: 1 件中 1 件目
> keys Tab Tab Tab Tab
keyboard: Button 居場所 in Tarumine
> press 閉じる
[Tarumine] marks: | keyboard: EditableText テキスト in Tarumine | no [Tarumine] EditableText 検索 | no [Tarumine] Button 前へ | no [Tarumine] Button 次へ
no [Tarumine] label #5 | no [Tarumine] CheckBox 大文字と小文字を区別 | no [Tarumine] Button 閉じる
> keys Ctrl+F4
keyboard: nowhere | no [Tarumine]
