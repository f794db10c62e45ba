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


SCRIPTS = """العربية لغة جميلة، وتُكتب من اليمين إلى اليسار. عدد الصفحات 123.
עברית היא שפה שמית. שלום עולם! בְּרֵאשִׁית בָּרָא (סוגריים)
हिन्दी भारत की राजभाषा है। क्षत्रिय कर्म स्त्री प्रार्थना
ภาษาไทยเป็นภาษาราชการของประเทศไทย ที่นี่มีน้ำใจกันทั้งนั้น
Ελληνικά, Кириллица, Tiếng Việt, 한국어, office, e\u0301
か\u309a 葛\U000e0100飾区 ﾊﾝｶｸ ｶﾞ 日⽇文⽂ 〜～−－ ①㈱髙﨑
😀👨‍👩‍👧‍👦🏳️‍🌈🇯🇵👍🏽1️⃣❤️☺☺️
int main()
{
\tif (a)\t// a tab
\t\treturn  a;  // two blanks
}
"""


def every_character():
    """Each assigned character of the installed fonts."""
    import subprocess
    import unicodedata
    ranges = subprocess.run(["fc-list", "--format", "%{charset} "], capture_output=True, text=True, check=True).stdout
    covered = set()
    for each in set(ranges.split()):
        first, _, last = each.partition("-")
        covered.update(range(int(first, 16), int(last or first, 16) + 1))
    wanted = [chr(c) for c in sorted(covered) if unicodedata.category(chr(c)) not in ("Cn", "Cs", "Cc", "Zl", "Zp")]
    return "\n".join("".join(wanted[i:i + 40]) for i in range(0, len(wanted), 40))
