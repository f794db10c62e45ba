# The circuit, and what the window does meanwhile.
> quietly start
> press 別スレッド until 動作完了
[Tarumine] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “動作完了” | keyboard: Button 別スレッド in Tarumine
printed: 904777: revision2⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎1⏎1⏎1⏎1⏎1⏎…10⏎4⏎-1⏎product code :20250401 (1809737) | said: スレッド動作中 | said: 動作完了
> quietly type a
> keys Ctrl+Z
[Tarumine] 編集/ disabled: 切り取り(&T), コピー(&C) | EditableText テキスト: “スレッド動作中”
> keys Ctrl+N
[Tarumine]: | [Tarumine 2]: in front | 編集/ disabled: 元に戻す(&U), やり直す(&R), 切り取り(&T), コピー(&C)
EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…込むなどして保存ください。簡易PDF出力（仮）が可能です。” (135) | keyboard: EditableText テキスト in Tarumine 2
> press 別スレッド until “動作完了
[Tarumine 2] 編集/ disabled: やり直す(&R), 切り取り(&T), コピー(&C) | EditableText テキスト: “動作完了” | keyboard: Button 別スレッド in Tarumine 2
printed: 1809554: revision2⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎1⏎1⏎1⏎1⏎1⏎…10⏎4⏎-1⏎product code :20250401 (3619475) | said: スレッド動作中 | said: 動作完了
> go Tarumine
[Tarumine]: in front | [Tarumine 2]: | keyboard: Button 別スレッド in Tarumine
> press 起動 until Microsoft
keyboard: Button 起動 in Tarumine | printed: 1809555: revision2⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎0⏎1⏎1⏎1⏎1⏎1⏎…401⏎Microsoft Edge が見つかりませんでした (3619502)
