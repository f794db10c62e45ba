"""Texts for the benchmarks: Japanese prose, always the same for the same size."""
import random

WORDS = ("朝 夜 昼 雨 風 山 川 海 町 駅 電車 猫 犬 鳥 魚 花 木 本 机 窓 手紙 写真 音楽 言葉 文章 段落 時間 場所 名前 "
         "ファイル フォルダ ボタン ウィンドウ テキスト データ プログラム 読む 書く 開く 閉じる 選ぶ 動く 考える 調べる "
         "美しい 静かな 小さな 大きな 新しい 古い 速い とても 少し すぐに やがて である です ます した して から まで "
         "には では として について けれど そして しかし Linux A4 UTF-8 100% 2026-11-22 README main()").split()
MARKS = ["。", "、", "。", "、", "！", "？", "……", "「", "」", "（", "）", "　"]
EMOJI = ["😀", "🎉", "👍", "🍣", "🗻", "❤️", "👨‍👩‍👧", "🇯🇵", "✅", "👍🏽", "🐈"]


def sentence(rng, length, emoji):
    parts, have = [], 0
    while have < length:
        chance = rng.random()
        part = rng.choice(MARKS if chance < 0.13 else EMOJI if emoji and chance < 0.136 else WORDS)
        parts.append(part)
        have += len(part)
    return "".join(parts)


def prose(size, emoji=True, lines=True):
    """About `size` bytes of UTF-8, never more: paragraphs of all lengths, or a single line."""
    rng = random.Random(1)
    parts, have = [], 0
    while have < min(size, 1 << 20):
        length = rng.choice([0, 8, 20, 30, 40, 45, 100, rng.choice([100, 3000])])
        parts.append(sentence(rng, length, emoji))
        have += len(parts[-1].encode()) + 1
    once = ("\n" if lines else "").join(parts)
    text = once.encode() * (size // len(once.encode()) + 1)
    return text[:size].decode("utf-8", "ignore")
