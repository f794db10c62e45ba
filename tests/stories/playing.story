# The six events and the board.
> quietly start
> press 🐱Cat
[Tarumine]: | [Tarumine] board: 居場所 at 298, 58 | Button 居場所 #2: | [🐱Cat に餌をやりました]: over Tarumine, holds up that window, in front | label: 🐱Cat に餌をやりました
Button OK: | Button キャンセル: | keyboard: Button OK in 🐱Cat に餌をやりました | kept [General]: | kept CatPX5: 3 | no [Tarumine] Button 船🛥
> keys Return until printed: 1
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 1: OK tapped | no [🐱Cat に餌をやりました]
> press 🐦Bird
[Tarumine]: | [🐦Bird に餌をやりました]: over Tarumine, holds up that window, in front | label: 🐦Bird に餌をやりました | Button OK: | Button キャンセル:
keyboard: Button OK in 🐦Bird に餌をやりました | kept BirdPX5: 3
> keys Esc until printed: 2
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 2: OK tapped⏎Cancel tapped | no [🐦Bird に餌をやりました]
> press 居場所
[Tarumine]: | [居場所に戻りました]: over Tarumine, holds up that window, in front | label: 居場所に戻りました | Button OK: | Button キャンセル:
keyboard: Button OK in 居場所に戻りました | kept CarPX5: 🚙
> press キャンセル until printed: 3
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 3: OK tapped⏎Cancel tapped⏎Cancel tapped | no [居場所に戻りました]
> press 手荷物
[Tarumine]: | [🐱🐦手荷物を確認しました]: over Tarumine, holds up that window, in front | label: 🐱🐦手荷物を確認しました | Button OK: | Button キャンセル:
keyboard: Button OK in 🐱🐦手荷物を確認しました | kept BagPX5: 🛍
> press OK until printed: 4
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 4: OK tapped⏎Cancel tapped⏎Cancel tapped⏎OK tapped | no [🐱🐦手荷物を確認しました]
> press 暗黙知
[Tarumine]: | [🐱🐦暗黙知というタネを撒いて収穫物を確認しました]: over Tarumine, holds up that window, in front | label: 🐱🐦暗黙知というタネを撒いて収穫物を確認しました | Button OK:
Button キャンセル: | keyboard: Button OK in 🐱🐦暗黙知というタネを撒いて収穫物を確認しました | kept FirmPX5: 種子
> press OK until printed: 5
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 5: OK tapped⏎Cancel tapped⏎Cancel tapped⏎OK tapped⏎OK tapped
no [🐱🐦暗黙知というタネを撒いて収穫物を確認しました]
> press 寄付
[Tarumine]: | [🐱🐦寄付という税のような物を収穫物の中から支払いました]: over Tarumine, holds up that window, in front | label: 🐱🐦寄付という税のような物を収穫物の中から支払いました | Button OK:
Button キャンセル: | keyboard: Button OK in 🐱🐦寄付という税のような物を収穫物の中から支払いました
> close until printed: 6
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | printed: 6: OK tapped⏎Cancel tapped⏎Cancel tapped⏎OK tapped⏎OK tapped⏎Cancel tapped
no [🐱🐦寄付という税のような物を収穫物の中から支払いました]
> press 居場所 #2
[Tarumine] board: お店 at 304, 58 | Button お店: | keyboard: Button お店 in Tarumine | no [Tarumine] Button 居場所 #2
> keys Space
[Tarumine] board: 食品購入 at 256, 58; 衣類購入 at 328, 58 | Button 食品購入: | Button 衣類購入: | keyboard: Button 食品購入 in Tarumine | no [Tarumine] Button お店
> press 食品購入
[Tarumine] board: 船🛥 at 275, 6 | Button 船🛥: 左岸 | keyboard: Button 船🛥 in Tarumine | no [Tarumine] Button 食品購入 | no [Tarumine] Button 衣類購入
> press 船🛥
[Tarumine] board: 船🛥 at 325, 6 | Button 船🛥: 左岸から 50、右へ航行中
> quietly keys Space Space Space Space Space Space Space Space Space Space
> keys Space Space Space Space Space Space Space Space Space Space Space Space Space Space
[Tarumine] board: 船⚓️🛥 at 275, 6; 下船 at 244, 58; 冨士山公園 at 142, 58; 駅 at 76, 58 | Button 船⚓️🛥: 左岸に停泊中 | Button 下船: | Button 冨士山公園:
keyboard: Button 船⚓️🛥 in Tarumine | no [Tarumine] Button 船🛥⚓️
> keys Space
> press 下船
keyboard: Button 下船 in Tarumine
> font 16
[Tarumine] Separator 本文の境界: 396 | Separator サイドバーの境界: 224 | board: 船⚓️🛥 at 239, 6; 下船 at 172, 45; 冨士山公園 at 88, 45; 駅 at 67, 45
> font 9
[Tarumine] Separator 本文の境界: 324 | Separator サイドバーの境界: 164 | board: 船⚓️🛥 at 275, 13; 下船 at 244, 71; 冨士山公園 at 142, 71; 駅 at 76, 71
> press 冨士山公園
[Tarumine] board: 船🛥 at 275, 13 | Button 船🛥: 左岸 | keyboard: Button 船🛥 in Tarumine | no [Tarumine] Button 船⚓️🛥 | no [Tarumine] Button 下船
no [Tarumine] Button 冨士山公園 | no [Tarumine] Button 駅
> keys Tab
keyboard: Button 🐱Cat in Tarumine
> size 999 300
[Tarumine] board: 船🛥 at 268, 13
> font 16
[Tarumine] Separator 本文の境界: 396 | Separator サイドバーの境界: 224 | board: 船🛥 at 232, 6 | Button 船🛥: 左岸, partly hidden
> size 700 260
[Tarumine] Separator 本文の境界: 277 | Separator サイドバーの境界: 156 | ComboBox ブラウザを選択: partly hidden
[Tarumine] EditableText テキスト: “アプリ起動後に読み込んだ文章です。この枠内で読書が可能ですので読込ボタンを押して下さい。この文章は…PDF出力（仮）が可能です。”, partly hidden (150) | board: 船🛥 at 142, 6
