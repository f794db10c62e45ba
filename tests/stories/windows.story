# The window and its menus, several windows, and what stands over which.
> start
[Tarumine]: in front | ファイル/: 新規ウインドウ(&N) Ctrl+N, 読込(&O) Ctrl+O, 簡易PDF(&P) Ctrl+P, Tarumine について(&A), ウインドウを閉じる(&C) Ctrl+F4, Tarumine を終了(&Q) Ctrl+Q
ファイル/ disabled: | ファイル/ checked:
編集/: 元に戻す(&U) Ctrl+Z, やり直す(&R) Ctrl+Y, 切り取り(&T) Ctrl+X, コピー(&C) Ctrl+C, 貼り付け(&P) Ctrl+V, すべてを選択(&A) Ctrl+A, 検索(&F)… Ctrl+F, 次を検索(&N) F3 Ctrl+G, 前を検索(&V) Shift+F3 Ctrl+Shift+G, 設定(&S)… Ctrl+,
編集/ disabled: 元に戻す(&U), やり直す(&R), 切り取り(&T), コピー(&C) | 編集/ checked: | 表示/文字コード(&E)/: | 表示/文字コード(&E)/ disabled: | 表示/文字コード(&E)/ checked:
表示/: サイドバー(&S) F9, 文字を大きく(&L) Ctrl++ Ctrl+= Ctrl+;, 文字を小さく(&M) Ctrl+-, 標準の大きさ(&N) Ctrl+0, 文字コード(&E) | 表示/ disabled: | 表示/ checked: サイドバー(&S)
ウインドウ/: 最小化(&M) Ctrl+M | ウインドウ/ disabled: | ウインドウ/ checked: | ヘルプ/: Tarumine ヘルプ…, オンラインヘルプ…, 添付マニュアルをお読みください | ヘルプ/ disabled: | ヘルプ/ checked:
Button 🐱Cat: | Button 🐦Bird: | Button 居場所: | Button 手荷物: | Button 暗黙知: | Button 寄付: | Separator 本文の境界: 324 | Separator サイドバーの境界: 164
Tree サイドバー: “サイドバー”, partly hidden | row フォルダA: レベル 1 | row フォルダB: レベル 1 | label: 何も選択されていません | label #2: Font Size | Slider Font Size: ポイント, 14
label #3: 14 pt | Button 別スレッド: | Button 読込: | Button 簡易PDF: | Button 起動: | label #4: ブラウザを選択 | ComboBox ブラウザを選択:
EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…込むなどして保存ください。簡易PDF出力（仮）が可能です。” (135) | caret: 0 | points: 14 | marks:
board: 船🛥 at 275, 6 | Button 船🛥: 左岸 | keyboard: EditableText テキスト in Tarumine | printed: 0: | clipboard:
> choose ファイル/Tarumine について
[Tarumine]: | [Tarumine ]: over Tarumine, holds up that window, in front | label: Tarumine | Button OK:
label #2: 文章を読む欄と、ちいさな道具と、船がひとつ。⏎⏎ライセンス: MIT⏎⏎使って…、libpng、uchardet、CUPS、GLib、XCB (137) | keyboard: Button OK in Tarumine
> keys Esc
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | no [Tarumine ]
> choose ファイル/新規ウインドウ
[Tarumine]: | [Tarumine 2]: in front | keyboard: EditableText テキスト in Tarumine 2
> do SetFocus Font Size
keyboard: Slider Font Size in Tarumine 2
> keys End
[Tarumine 2] 表示/ disabled: 文字を大きく(&L) | Slider Font Size: ポイント, 40 | label #3: 40 pt | points: 40
> choose ヘルプ/添付マニュアル
[Tarumine 2]: | [添付マニュアルが見つかりません。]: over Tarumine 2, holds up that window, in front | label: 添付マニュアルが見つかりません。 | Button OK:
keyboard: Button OK in 添付マニュアルが見つかりません。
> go Tarumine
[Tarumine]: in front | [添付マニュアルが見つかりません。]: over Tarumine 2, holds up that window | keyboard: EditableText テキスト in Tarumine
> press 🐱Cat
[Tarumine]: | [Tarumine] board: 居場所 at 298, 58 | Button 居場所 #2: | [🐱Cat に餌をやりました]: over Tarumine, holds up that window, in front | label: 🐱Cat に餌をやりました
Button キャンセル: | keyboard: Button OK in 🐱Cat に餌をやりました | kept [General]: | kept CatPX5: 3 | no [Tarumine] Button 船🛥
> go Tarumine 2
[Tarumine 2]: in front | [🐱Cat に餌をやりました]: over Tarumine, holds up that window | keyboard: Slider Font Size in Tarumine 2
> go 添付マニュアルが見つかりません。
[Tarumine 2]: | [添付マニュアルが見つかりません。]: over Tarumine 2, holds up that window, in front | keyboard: Button OK in 添付マニュアルが見つかりません。
> keys Return
[Tarumine 2]: in front | keyboard: Slider Font Size in Tarumine 2 | no [添付マニュアルが見つかりません。]
> go 🐱Cat に餌をやりました
[Tarumine 2]: | [🐱Cat に餌をやりました]: over Tarumine, holds up that window, in front | keyboard: Button OK in 🐱Cat に餌をやりました
> keys Esc until printed: 1
[Tarumine 2]: in front | keyboard: Slider Font Size in Tarumine 2 | printed: 1: Cancel tapped | no [🐱Cat に餌をやりました]
> choose ウインドウ/最小化
[Tarumine 2]: minimized, in front | [Tarumine 2] ウインドウ/: 最小化(&M) Ctrl+M, Tarumine, Tarumine 2 | ウインドウ/ checked: Tarumine 2
> go Tarumine 2
> choose ウインドウ/Tarumine
[Tarumine]: in front | [Tarumine 2]: minimized | [Tarumine 2] ウインドウ/ checked: Tarumine | keyboard: EditableText テキスト in Tarumine
> type aあ
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C)
[Tarumine] EditableText テキスト: “aあアプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文…込むなどして保存ください。簡易PDF出力（仮）が可能です。” (137) | caret: 2
> choose ウインドウ/最小化
[Tarumine]: minimized, in front | [Tarumine] ウインドウ/: 最小化(&M) Ctrl+M, Tarumine, Tarumine 2 | ウインドウ/ checked: Tarumine
> go Tarumine 2
[Tarumine]: minimized | [Tarumine 2]: minimized, in front | keyboard: Slider Font Size in Tarumine 2
> choose ウインドウ/Tarumine
[Tarumine]: in front | [Tarumine 2]: minimized | keyboard: EditableText テキスト in Tarumine
> keys Ctrl+,
[Tarumine]: | [設定]: in front | label: 気になる用語(順不同) | CheckBox アニメ: | CheckBox 映画: | CheckBox エージェント: | CheckBox チャット型: | CheckBox 自律型: | CheckBox 座席:
CheckBox 磁気: | CheckBox ブランド: | CheckBox アクセス権: | keyboard: CheckBox アニメ in 設定
> press アニメ
[設定] CheckBox アニメ: checked | kept IntKeyToggle1: 1
> keys Ctrl+N
[Tarumine 3]: in front | ウインドウ/: 最小化(&M) Ctrl+M | ウインドウ/ checked: | [設定]: | keyboard: EditableText テキスト in Tarumine 3
> keys Ctrl+,
[Tarumine 3]: | [設定]: in front | keyboard: CheckBox アニメ in 設定
> keys Esc
[Tarumine 3]: in front | keyboard: EditableText テキスト in Tarumine 3 | no [設定]
> keys Ctrl+,
[Tarumine 3]: | [設定]: in front | label: 気になる用語(順不同) | CheckBox アニメ: checked | CheckBox 映画: | CheckBox エージェント: | CheckBox チャット型: | CheckBox 自律型:
CheckBox 座席: | CheckBox 磁気: | CheckBox ブランド: | CheckBox アクセス権: | keyboard: CheckBox アニメ in 設定
> do Toggle 映画
[設定] CheckBox 映画: checked | kept IntKeyToggle2: 1
> press 映画
[設定] CheckBox 映画: | keyboard: CheckBox 映画 in 設定 | kept IntKeyToggle2: 0
> close
[Tarumine 3]: in front | keyboard: EditableText テキスト in Tarumine 3 | no [設定]
> choose ファイル/ウインドウを閉じる
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | no [Tarumine 3]
> keys Ctrl+F4
[Tarumine 2]: minimized, in front | keyboard: Slider Font Size in Tarumine 2 | no [Tarumine]
> quietly keys Ctrl+N
> keys Ctrl+N
[Tarumine 4]: | [Tarumine 5]: in front | keyboard: EditableText テキスト in Tarumine 5
> quietly keys Ctrl+,
> keys Ctrl+Q
said: asked to quit
> keys Esc
[Tarumine 5]: in front | keyboard: EditableText テキスト in Tarumine 5 | no [設定]
> keys Ctrl+Q
said: asked to quit
> press 居場所
[Tarumine 5]: | [居場所に戻りました]: over Tarumine 5, holds up that window, in front | label: 居場所に戻りました | Button OK: | Button キャンセル:
keyboard: Button OK in 居場所に戻りました | kept CarPX5: 🚙
> keys Ctrl+Q
said: asked to quit
> keys Esc
[Tarumine 5]: in front | keyboard: EditableText テキスト in Tarumine 5 | no [居場所に戻りました]
