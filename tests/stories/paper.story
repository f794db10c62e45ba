# The text as a PDF.
> quietly start
> press 簡易PDF
[Tarumine]: | [PDFを保存できません。]: over Tarumine, holds up that window, in front | label: PDFを保存できません。 | Button OK: | label #2: ダウンロードフォルダがありません。
keyboard: Button OK in PDFを保存できません。
> press OK
[Tarumine]: in front | keyboard: Button 簡易PDF in Tarumine | no [PDFを保存できません。]
> press 簡易PDF
[Tarumine]: | [PDFを保存できません。]: over Tarumine, holds up that window, in front | label: PDFを保存できません。 | Button OK: | label #2: ダウンロードフォルダがありません。
keyboard: Button OK in PDFを保存できません。
> press OK
[Tarumine]: in front | keyboard: Button 簡易PDF in Tarumine | no [PDFを保存できません。]
> file Downloads/a.txt a
file Downloads/a.txt: a
> quietly do SetFocus テキスト ; keys Ctrl+A
> type 一頁。
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “一頁。” | caret: 3
> press 簡易PDF until 印刷
[Tarumine]: | [印刷]: over Tarumine, holds up that window, in front | noDuplex: しない | duplexLong: 長辺綴じ | duplexShort: 短辺綴じ | numbers: ページ番号を付ける(&G)
keyboard: ComboBox 名前(N): in 印刷
> keys Esc
[Tarumine]: in front | keyboard: Button 簡易PDF in Tarumine | no [印刷]
> choose ファイル/簡易PDF until 印刷
[Tarumine]: | [印刷]: over Tarumine, holds up that window, in front | noDuplex: しない | duplexLong: 長辺綴じ | duplexShort: 短辺綴じ | numbers: ページ番号を付ける(&G)
keyboard: ComboBox 名前(N): in 印刷
> quietly keys Esc ; do SetFocus テキスト ; clipboard 60 times ##行目\n ; keys Ctrl+V ; press 簡易PDF until 印刷
> tick numbers
> keys Return until 書き出しました
[Tarumine]: in front | keyboard: Button 簡易PDF in Tarumine
file Downloads/名称未設定.pdf: 2 pages: 一頁。1行目⏎2行目⏎3行目⏎4行目⏎5行目⏎6行目⏎7行目⏎8行目⏎9行目⏎10…目⏎56行目⏎57行目⏎58行目⏎59行目⏎60行目⏎2⏎� (309) | no [印刷] | said: 書き出しました
> quietly do SetFocus テキスト
> type 二度目
[Tarumine] EditableText テキスト: “一頁。1行目⏎2行目⏎3行目⏎4行目⏎5行目⏎6行目⏎7行目⏎8行目⏎9行目⏎10行目⏎11行目⏎…⏎56行目⏎57行目⏎58行目⏎59行目⏎60行目⏎二度目” (299) | caret: 297
> press 簡易PDF until 印刷
[Tarumine]: | [印刷]: over Tarumine, holds up that window, in front | noDuplex: しない | duplexLong: 長辺綴じ | duplexShort: 短辺綴じ | numbers: ページ番号を付ける(&G)
keyboard: ComboBox 名前(N): in 印刷
> close
[Tarumine]: in front | keyboard: Button 簡易PDF in Tarumine | no [印刷]
> keys Ctrl+Q
said: asked to quit
