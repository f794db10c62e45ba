# Files: which are taken, how they are read, and what is there again when that is taken back.
> quietly file yomu.txt 一行目\n二行目\n三行目 ; file Oki.TXT 大文字の名前 ; file sjis.txt \x93\xfa\x96\x7b\x8c\xea\x81\x41\x81\x60
> quietly file half.txt \x93\xfa\x96 ; file kaki.rtf {\rtf1 rich} ; file long.txt 300 times 行##\n ; file crlf.txt 一\x0d\n二\x0d三\n ; start
> press 読込
[Tarumine]: | [開く]: over Tarumine, holds up that window, in front | takes: TXT ファイル (*.[tT][xX][tT]) | keyboard: EditableText ファイル名(N): in 開く
> keys Esc
[Tarumine]: in front | keyboard: Button 読込 in Tarumine | no [開く]
> press 読込
[Tarumine]: | [開く]: over Tarumine, holds up that window, in front | takes: TXT ファイル (*.[tT][xX][tT]) | keyboard: EditableText ファイル名(N): in 開く
> take yomu.txt
[Tarumine]: in front | [Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “一行目⏎二行目⏎三行目” | keyboard: EditableText テキスト in Tarumine
no [開く] | said: 読み込みました
> type x
[Tarumine] EditableText テキスト: “x一行目⏎二行目⏎三行目” | caret: 1
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “一行目⏎二行目⏎三行目” | caret: 0
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 元に戻す(&U), 切り取り(&T), コピー(&C)
[Tarumine] EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…込むなどして保存ください。簡易PDF出力（仮）が可能です。” (135)
> keys Ctrl+Y
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “一行目⏎二行目⏎三行目”
> drop file Oki.TXT
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “大文字の名前” | said: dropped: IgnoreAction | said: 読み込みました
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “一行目⏎二行目⏎三行目” | caret: 1
> type y
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “一y行目⏎二行目⏎三行目” | caret: 2
> keys Ctrl+Y
> drop file kaki.rtf
[Tarumine] caret: 1 | said: dropped: IgnoreAction
> quietly keys Ctrl+,
> press アニメ
[設定] CheckBox アニメ: checked | kept [General]: | kept IntKeyToggle1: 1
> quietly keys Esc
> drop file kaki.rtf
[Tarumine] EditableText テキスト: “{\rtf1 rich}” | caret: 0 | said: dropped: IgnoreAction | said: 読み込みました
> drop file yomu.txt
[Tarumine] caret: 2 | said: dropped: IgnoreAction
> press 読込
[Tarumine]: | [開く]: over Tarumine, holds up that window, in front | takes: RTF ファイル (*.[rR][tT][fF]) | keyboard: EditableText ファイル名(N): in 開く
> take kaki.rtf
[Tarumine]: in front | [Tarumine] caret: 0 | keyboard: EditableText テキスト in Tarumine | no [開く] | said: 読み込みました
> quietly keys Ctrl+, ; press アニメ ; keys Esc
> drop file sjis.txt
[Tarumine] EditableText テキスト: “日本語、〜” | said: dropped: IgnoreAction | said: 読み込みました
> choose 表示/文字コード/UTF-8
[Tarumine]:
[Tarumine] 表示/文字コード(&E)/: 自動(&A), UTF-8, 日本語（シフト JIS）, 日本語（EUC-JP）, 日本語（JIS, ISO-2022-JP）, UTF-16（リトルエンディアン）, UTF-16（ビッグエンディアン）, UTF-32（リトルエンディアン）, UTF-32（ビッグエンディアン）, 中国語（簡体字, GB18030）, 中国語（繁体字, Big5）, 韓国語（UHC）, 西ヨーロッパ（Windows-1252）, 西ヨーロッパ（ISO-8859-15）, 中央ヨーロッパ（Windows-1250）, 中央ヨーロッパ（ISO-8859-2）, バルト（Windows-1257）, キリル（Windows-1251）, キリル（ISO-8859-5）, キリル（DOS 866）, ロシア語（KOI8-R）, ウクライナ語（KOI8-U）, ギリシャ語（Windows-1253）, ギリシャ語（ISO-8859-7）, トルコ語（Windows-1254）, ヘブライ語（Windows-1255）, アラビア語（Windows-1256）
[Tarumine] 表示/文字コード(&E)/ checked: UTF-8 | [この文字コードでは読めません。]: over Tarumine, holds up that window, in front | label: この文字コードでは読めません。 | Button OK:
label #2: 文章は、もとのままです。 | keyboard: Button OK in この文字コードでは読めません。
> press OK
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | no [この文字コードでは読めません。]
> choose 表示/文字コード/西ヨーロッパ（Windows-1252）
[Tarumine] 表示/文字コード(&E)/ checked: 西ヨーロッパ（Windows-1252） | EditableText テキスト: ““ú–{Œê�A�`” | said: 読み込みました
> drop file yomu.txt
[Tarumine] EditableText テキスト: “一行目⏎二行目⏎三行目” | said: dropped: IgnoreAction | said: 読み込みました
> drop file half.txt
[Tarumine] caret: 1 | said: dropped: IgnoreAction
> drop file yomu.txt sjis.txt
said: dropped: IgnoreAction
> clipboard file Oki.TXT
clipboard: file://~/Oki.TXT
> keys Ctrl+V
[Tarumine] EditableText テキスト: “大文字の名前” | caret: 0 | said: 読み込みました
> keys Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “一y行目⏎二行目⏎三行目” | caret: 1
> drop file long.txt
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C)
[Tarumine] EditableText テキスト: “行1⏎行2⏎行3⏎行4⏎行5⏎行6⏎行7⏎行8⏎行9⏎行10⏎行11⏎行12⏎行13⏎行14⏎行1…295⏎行296⏎行297⏎行298⏎行299⏎行300⏎” (1394) | caret: 0
said: dropped: IgnoreAction | said: 読み込みました
> keys Ctrl+End
[Tarumine] caret: 1392 | scrolled to: 行296
> drop file sjis.txt
[Tarumine] EditableText テキスト: “日本語、〜” | caret: 0 | no [Tarumine] scrolled to | said: dropped: IgnoreAction | said: 読み込みました
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “行1⏎行2⏎行3⏎行4⏎行5⏎行6⏎行7⏎行8⏎行9⏎行10⏎行11⏎行12⏎行13⏎行14⏎行1…295⏎行296⏎行297⏎行298⏎行299⏎行300⏎” (1394)
[Tarumine] caret: 1368 | scrolled to: 行296
> keys Ctrl+End
[Tarumine] caret: 1392
> turn 120
[Tarumine] Slider Font Size: ポイント, 15 | label #3: 15 pt | points: 15
> turn -120
[Tarumine] Slider Font Size: ポイント, 14 | label #3: 14 pt | points: 14
> drop file crlf.txt
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “一⏎二⏎三⏎” | caret: 0 | no [Tarumine] scrolled to | said: dropped: IgnoreAction
said: 読み込みました
> keys Ctrl+A Ctrl+C
[Tarumine] 編集/ disabled: やり直す(&R) | caret: 0 to 6 | clipboard: 一⏎二⏎三⏎
> quietly press 読込
> take kaki.rtf
[Tarumine]: in front | keyboard: Button 読込 in Tarumine | no [開く]
> keys Esc
