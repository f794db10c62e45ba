# Settings, and others who write to the same file.
> file config/tarumine/Tarumine.conf [General]\nStringKeyPX5=前の\nIntKeyToggle2=1\nIntKeyToggle8=2\nIntKeyToggle9=-1\nother=keep\n[Group]\nx=1\n
keyboard: nowhere | kept [General]: | kept StringKeyPX5: 前の | kept IntKeyToggle2: 1 | kept IntKeyToggle8: 2 | kept IntKeyToggle9: -1 | kept other: keep
kept [Group]: | kept x: 1 | printed: 0: | clipboard:
> quietly start
> keys Ctrl+,
[Tarumine]: | [設定]: in front | label: 気になる用語(順不同) | CheckBox アニメ: | CheckBox 映画: checked | CheckBox エージェント: | CheckBox チャット型: | CheckBox 自律型:
CheckBox 座席: | CheckBox 磁気: | CheckBox ブランド: | CheckBox アクセス権: | keyboard: CheckBox アニメ in 設定
> quietly press ブランド
> press アニメ
[設定] CheckBox アニメ: checked | keyboard: CheckBox アニメ in 設定 | kept IntKeyToggle1: 1
> file config/tarumine/Tarumine.conf [General]\nIntKeyToggle3=1\nBirdPX5=3\n[Group]\nx=2\n until エージェント: checked
[設定] CheckBox アニメ: | CheckBox 映画: | CheckBox エージェント: checked | CheckBox ブランド: | kept IntKeyToggle3: 1 | kept BirdPX5: 3 | kept x: 2
no kept StringKeyPX5 | no kept IntKeyToggle2 | no kept IntKeyToggle8 | no kept IntKeyToggle9 | no kept other | no kept IntKeyToggle1
> press 座席
[設定] CheckBox 座席: checked | keyboard: CheckBox 座席 in 設定 | kept IntKeyToggle6: 1
> do Toggle 座席
[設定] CheckBox 座席: | kept IntKeyToggle6: 0
> file config/tarumine/Tarumine.conf \xff\xfe\x00broken=[
kept ���broken: [ | no kept [General] | no kept IntKeyToggle3 | no kept BirdPX5 | no kept IntKeyToggle6 | no kept [Group] | no kept x
> press 磁気
[設定] CheckBox 磁気: checked | keyboard: CheckBox 磁気 in 設定 | kept [General]: | kept IntKeyToggle3: 1 | kept BirdPX5: 3 | kept IntKeyToggle6: 0
kept IntKeyToggle7: 1 | kept [Group]: | kept x: 2 | file config/tarumine/Tarumine.conf.unreadable-…: ���broken=[ | no kept ���broken
> press アニメ
[設定] CheckBox アニメ: checked | keyboard: CheckBox アニメ in 設定 | kept IntKeyToggle1: 1
> press 映画
[設定] CheckBox 映画: checked | keyboard: CheckBox 映画 in 設定 | kept IntKeyToggle2: 1
> press エージェント
[設定] CheckBox エージェント: | keyboard: CheckBox エージェント in 設定 | kept IntKeyToggle3: 0
> press チャット型
[設定] CheckBox チャット型: checked | keyboard: CheckBox チャット型 in 設定 | kept IntKeyToggle4: 1
> press 自律型
[設定] CheckBox 自律型: checked | keyboard: CheckBox 自律型 in 設定 | kept IntKeyToggle5: 1
> press 座席
[設定] CheckBox 座席: checked | keyboard: CheckBox 座席 in 設定 | kept IntKeyToggle6: 1
> press 磁気
[設定] CheckBox 磁気: | keyboard: CheckBox 磁気 in 設定 | kept IntKeyToggle7: 0
> press ブランド
[設定] CheckBox ブランド: checked | keyboard: CheckBox ブランド in 設定 | kept IntKeyToggle8: 1
> press アクセス権
[設定] CheckBox アクセス権: checked | keyboard: CheckBox アクセス権 in 設定 | kept IntKeyToggle9: 1
> close
[Tarumine]: in front | keyboard: EditableText テキスト in Tarumine | no [設定]
> quietly close ; start
> press 手荷物
[Tarumine 2]: | [🐱🐦手荷物を確認しました]: over Tarumine 2, holds up that window, in front | label: 🐱🐦手荷物を確認しました | Button OK: | Button キャンセル:
keyboard: Button OK in 🐱🐦手荷物を確認しました | kept BagPX5: 🛍
> press OK until printed: 1
[Tarumine 2]: in front | keyboard: EditableText テキスト in Tarumine 2 | printed: 1: OK tapped | no [🐱🐦手荷物を確認しました]
