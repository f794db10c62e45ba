# Where the keyboard goes, in the order of the screen.
> quietly start
> keys Tab
keyboard: Button 船🛥 in Tarumine
> keys Tab
keyboard: Button 🐱Cat in Tarumine
> keys Tab Tab Tab Tab Tab
keyboard: Button 寄付 in Tarumine
> keys Tab
keyboard: Tree サイドバー in Tarumine
> keys Tab
keyboard: Separator サイドバーの境界 in Tarumine
> keys Tab
keyboard: Separator 本文の境界 in Tarumine
> keys Tab
keyboard: Slider Font Size in Tarumine
> keys Tab
keyboard: Button 別スレッド in Tarumine
> keys Tab
keyboard: Button 読込 in Tarumine
> keys Tab
keyboard: Button 簡易PDF in Tarumine
> keys Tab
keyboard: Button 起動 in Tarumine
> keys Tab
keyboard: ComboBox ブラウザを選択 in Tarumine
> keys Tab
keyboard: EditableText テキスト in Tarumine
> keys Tab
keyboard: Button 船🛥 in Tarumine
> keys Shift+Tab
keyboard: EditableText テキスト in Tarumine
> keys F9 Shift+Tab
[Tarumine] 表示/ checked: | keyboard: ComboBox ブラウザを選択 in Tarumine | no [Tarumine] Separator サイドバーの境界 | no [Tarumine] Tree サイドバー | no [Tarumine] row フォルダA
no [Tarumine] row フォルダB
> keys Shift+Tab Shift+Tab Shift+Tab Shift+Tab Shift+Tab Shift+Tab
keyboard: Separator 本文の境界 in Tarumine
> keys F10
[menu]: over Tarumine, in front | not at the caret:
: 新規ウインドウ(&N) Ctrl+N, 読込(&O) Ctrl+O, 簡易PDF(&P) Ctrl+P, Tarumine について(&A), ウインドウを閉じる(&C) Ctrl+F4, Tarumine を終了(&Q) Ctrl+Q | disabled: | checked:
keyboard: MenuBar  in Tarumine
> keys Esc
no [menu]
