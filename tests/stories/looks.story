# Sizes, boundaries, colours and the sidebar.
> quietly start
> keys Ctrl++ Ctrl++ Ctrl+-
[Tarumine] Slider Font Size: ポイント, 15 | label #3: 15 pt | points: 15
> turn 60
> turn 60
[Tarumine] Slider Font Size: ポイント, 16 | label #3: 16 pt | points: 16
> turn -30
> turn -90
[Tarumine] Slider Font Size: ポイント, 15 | label #3: 15 pt | points: 15
> choose 表示/標準の大きさ
[Tarumine] Slider Font Size: ポイント, 14 | label #3: 14 pt | points: 14
> turn 12000
[Tarumine] 表示/ disabled: 文字を大きく(&L) | Slider Font Size: ポイント, 40 | label #3: 40 pt | points: 40
> turn -12000
[Tarumine] 表示/ disabled: 文字を小さく(&M) | Slider Font Size: ポイント, 10 | label #3: 10 pt | points: 10
> quietly choose 表示/標準の大きさ
> do SetFocus Font Size
keyboard: Slider Font Size in Tarumine
> keys End
[Tarumine] 表示/ disabled: 文字を大きく(&L) | Slider Font Size: ポイント, 40 | label #3: 40 pt | points: 40
> keys Ctrl++
> keys Home
[Tarumine] 表示/ disabled: 文字を小さく(&M) | Slider Font Size: ポイント, 10 | label #3: 10 pt | points: 10
> keys Ctrl+0
[Tarumine] 表示/ disabled: | Slider Font Size: ポイント, 14 | label #3: 14 pt | points: 14
> keys F9
[Tarumine] 表示/ checked: | no [Tarumine] Separator サイドバーの境界 | no [Tarumine] Tree サイドバー | no [Tarumine] row フォルダA | no [Tarumine] row フォルダB
> keys F9
[Tarumine] 表示/ checked: サイドバー(&S) | Separator サイドバーの境界: 164 | Tree サイドバー: “サイドバー”, partly hidden | row フォルダA: レベル 1 | row フォルダB: レベル 1
> do SetFocus サイドバーの境界
keyboard: Separator サイドバーの境界 in Tarumine
> keys Right Right
[Tarumine] Separator サイドバーの境界: 184 | said: value of サイドバーの境界 | said: value of サイドバーの境界
> size 900 400
[Tarumine] Separator 本文の境界: 292 | Separator サイドバーの境界: 166 | board: 船🛥 at 241, 6
> size 1100 400
[Tarumine] Separator 本文の境界: 357 | Separator サイドバーの境界: 203 | board: 船🛥 at 309, 6
> do SetFocus 本文の境界
keyboard: Separator 本文の境界 in Tarumine
> keys Up
> keys Left
[Tarumine] Separator 本文の境界: 347 | Separator サイドバーの境界: 197 | board: 船🛥 at 314, 6 | said: value of 本文の境界
> row フォルダB
[Tarumine] row フォルダB: レベル 1, selected | label: (this computer) | label #2: (whoever is there) | label #3: 乗船切符のようなものが必要。コンピュータ名とユーザー名をご確認ください。
[Tarumine] label #4: Font Size | label #5: 14 pt | label #6: ブラウザを選択 | keyboard: Tree サイドバー in Tarumine
> keys Right Down
[Tarumine] row フォルダB: レベル 1 | row サブフォルダB1: レベル 2, selected
> type フォルダA
[Tarumine] row フォルダA: レベル 1, selected | row サブフォルダB1: レベル 2
> row フォルダA
> row 
[Tarumine] row フォルダA: レベル 1 | label: 何も選択されていません | label #2: Font Size | label #3: 14 pt | label #4: ブラウザを選択 | no [Tarumine] label #5
no [Tarumine] label #6
> row フォルダA
[Tarumine] row フォルダA: レベル 1, selected | label: (this computer) | label #2: (whoever is there) | label #3: 乗船切符のようなものが必要。コンピュータ名とユーザー名をご確認ください。
[Tarumine] label #4: Font Size | label #5: 14 pt | label #6: ブラウザを選択
> keys Esc
[Tarumine] row フォルダA: レベル 1 | label: 何も選択されていません | label #2: Font Size | label #3: 14 pt | label #4: ブラウザを選択 | no [Tarumine] label #5
no [Tarumine] label #6
> do SetFocus Font Size
keyboard: Slider Font Size in Tarumine
> keys Right
[Tarumine] Slider Font Size: ポイント, 15 | label #3: 15 pt | points: 15
> keys End Right
[Tarumine] 表示/ disabled: 文字を大きく(&L) | Slider Font Size: ポイント, 40 | label #3: 40 pt | points: 40
> keys Home Left
[Tarumine] 表示/ disabled: 文字を小さく(&M) | Slider Font Size: ポイント, 10 | label #3: 10 pt | points: 10
> size 300 500
[Tarumine] Separator 本文の境界: 107 | Separator サイドバーの境界: 264 | board: 船🛥 at 34, 6
> do SetFocus サイドバーの境界
keyboard: Separator サイドバーの境界 in Tarumine
> keys Up
[Tarumine] Separator サイドバーの境界: 254 | said: value of サイドバーの境界
> keys Down Down
[Tarumine] Separator サイドバーの境界: 274 | said: value of サイドバーの境界 | said: value of サイドバーの境界
> keys Left
> size 100 100
[Tarumine] ButtonMenu その他の出来事: | label: Font Size | Slider Font Size: ポイント, 10, partly hidden | label #2: 10 pt | Button 別スレッド: partly hidden
[Tarumine] Button 読込: partly hidden | Button 簡易PDF: partly hidden | Button 起動: partly hidden | label #3: ブラウザを選択, partly hidden
[Tarumine] ComboBox ブラウザを選択: partly hidden | EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…PDF出力（仮）が可能です。”, partly hidden (150)
[Tarumine] board: 船🛥 at 15, 6 | Button 船🛥: 左岸, partly hidden | keyboard: Slider Font Size in Tarumine | no [Tarumine] Button 🐦Bird
no [Tarumine] Button 居場所 | no [Tarumine] Button 手荷物 | no [Tarumine] Button 暗黙知 | no [Tarumine] Button 寄付 | no [Tarumine] Separator 本文の境界
no [Tarumine] Separator サイドバーの境界 | no [Tarumine] Tree サイドバー | no [Tarumine] row フォルダA | no [Tarumine] row フォルダB | no [Tarumine] row サブフォルダB1
no [Tarumine] label #4
> size 999 350
[Tarumine] Button 🐦Bird: | Button 居場所: | Button 手荷物: | Button 暗黙知: | Button 寄付: | Separator 本文の境界: 324 | Separator サイドバーの境界: 164
[Tarumine] Tree サイドバー: “サイドバー”, partly hidden | row フォルダA: レベル 1 | row フォルダB: レベル 1 | row サブフォルダB1: レベル 2 | label: 何も選択されていません | label #2: Font Size
[Tarumine] Slider Font Size: ポイント, 10 | label #3: 10 pt | Button 別スレッド: | Button 読込: | Button 簡易PDF: | Button 起動: | label #4: ブラウザを選択 | ComboBox ブラウザを選択:
[Tarumine] EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…込むなどして保存ください。簡易PDF出力（仮）が可能です。” (135) | board: 船🛥 at 275, 6
[Tarumine] Button 船🛥: 左岸 | no [Tarumine] ButtonMenu その他の出来事
