#!/usr/bin/env python3
"""How many texts, in how many encodings, decode_text gets right.

encodings.py DECODE_TEXT [-v]

Prose in eleven languages (prose.txt beside this file) is cut into pieces of 20 bytes to 1 MB, written
in each encoding that can hold it, and compared with what the program makes of it. A wrong text is worse
than none, so the two are counted apart; so are pieces of less than 200 bytes. Binary files must be
refused; noise of 20 bytes, which may happen to read like a text, is counted apart. Fails unless 99 % of the longer ones come out right and none wrong.
"""
import collections
import pathlib
import random
import subprocess
import sys
import tempfile

UNICODE = "utf-8 utf-8-sig utf-16 utf-16-le utf-16-be utf-32 utf-32-le utf-32-be gb18030".split()
LEGACY = {
    "ja": ["cp932", "shift_jis", "euc_jp", "iso2022_jp", "cp932", "euc_jp"],
    "ja-kana": ["cp932", "euc_jp", "shift_jis"],
    "ja-vendor": ["cp932"],
    "en": ["cp1252"],
    "zh-hans": ["gb2312", "gbk"],
    "zh-hant": ["big5", "cp950"],
    "ko": ["euc_kr", "cp949"],
    "ru": ["koi8_r", "cp1251", "iso8859_5", "cp866"],
    "de": ["cp1252", "latin_1"],
    "fr": ["cp1252", "iso8859_15"],
    "es": ["cp1252"],
    "pl": ["cp1250", "iso8859_2"],
    "tr": ["cp1254"],
}
SIZES = [20, 60, 200, 230, 700, 2_000, 30_000, 150_000]
LINE_ENDS = ["\n", "\r\n", "\r"]


def prose():
    texts = collections.defaultdict(list)
    for line in (pathlib.Path(__file__).parent / "prose.txt").read_text("utf-8").splitlines():
        if line and not line.startswith("#"):
            language, text = line.split("\t")
            texts[language].append(text)
    return texts


def encoded(text, encoding):
    # The vendor's encoding holds these two characters under other names.
    return (text.translate({0x301C: "～", 0x2212: "－"}) if encoding == "cp932" else text).encode(encoding)


def piece(rng, sentences, encoding, size):
    """Whole sentences and at last a cut one: about as many bytes as asked for."""
    end = rng.choice(LINE_ENDS)
    text, have = [], 0
    while have < size:
        sentence = rng.choice(sentences) + (end if rng.random() < 0.4 else "")
        have += len(encoded(sentence, encoding))
        text.append(sentence)
    whole = "".join(text)
    while len(encoded(whole, encoding)) > size + 2 and size < 2_000:
        whole = whole[:-1]
    return whole


def corpus():
    rng = random.Random(20260401)
    for language, sentences in prose().items():
        for encoding in LEGACY[language] + UNICODE:
            for size in SIZES if encoding in LEGACY[language] else rng.sample(SIZES, 3):
                text = piece(rng, sentences, encoding, size)
                if encoded(text, encoding) == text.encode("utf-8") and encoding != "utf-8":
                    continue  # nothing tells it from UTF-8
                yield f"{language} {encoding} {size}", encoded(text, encoding), text
    text = piece(rng, prose()["ja"], "cp932", 1_000_000)
    for encoding in ("cp932", "euc_jp", "iso2022_jp", "utf-16-le"):
        yield f"ja {encoding} 1000000", encoded(text, encoding), text
    # What is valid UTF-8 is a text, whatever it holds.
    odd = "\0" * 4096, "".join(map(chr, range(32))) * 20, "朝\0の\x07記録\x1b[0m" * 50, "一行" * 500_000
    for text in odd:
        yield "odd utf-8", text.encode(), text


def binaries():
    rng = random.Random(7)
    for size in (20, 200, 5_000, 300_000):
        for i in range(10):
            yield f"random bytes {size} {i}", rng.randbytes(size)
    yield "a program", pathlib.Path("/proc/self/exe").read_bytes()
    for picture in pathlib.Path(__file__).parents[2].glob("*/*.png"):
        yield picture.name, picture.read_bytes()
    text = "".join(prose()["ja"])
    yield "damaged UTF-8", text.encode().replace("。".encode(), "。".encode()[:2], 1)
    yield "a damaged line of UTF-8", (text + "é").encode()[:-1] + b"e"
    yield "damaged EUC-JP", "".join(prose()["ja"] * 9).encode("euc_jp") + b"\xff\xff"


def decoded(program, content):
    with tempfile.NamedTemporaryFile(suffix=".txt") as file:
        file.write(content)
        file.flush()
        run = subprocess.run([program, file.name], capture_output=True, timeout=60, check=False)
    return run.stdout.decode("utf-8") if run.returncode == 0 else None


def main():
    program, verbose = sys.argv[1], "-v" in sys.argv
    tally = collections.Counter()
    wrong_by_encoding = collections.Counter()
    for name, content, text in corpus():
        got = decoded(program, content)
        kind = "long" if len(content) > 200 else "short"
        outcome = "right" if got == text else "refused" if got is None else "wrong"
        tally[kind, outcome] += 1
        if outcome != "right":
            wrong_by_encoding[name.split()[1], kind, outcome] += 1
            if verbose:
                print(f"{outcome}: {name}: {text[:30]!r} became {got and got[:30]!r}")
    for name, content in binaries():
        got = decoded(program, content)
        tally["binary" if len(content) > 60 else "noise", "right" if got is None else "wrong"] += 1
        if got is not None and verbose:
            print(f"wrong: {name} became {got[:30]!r}")
    for kind in ("long", "short", "binary", "noise"):
        outcomes = {o: tally[kind, o] for o in ("right", "refused", "wrong")}
        print(f"{kind:7} {sum(outcomes.values()):4} files, right {outcomes['right'] / sum(outcomes.values()):.1%}, "
              f"refused {outcomes['refused']}, wrong {outcomes['wrong']}")
    for (encoding, kind, outcome), count in wrong_by_encoding.most_common():
        print(f"  {encoding}, {kind}: {outcome} {count}")
    longer = tally["long", "right"] / sum(tally["long", o] for o in ("right", "refused", "wrong"))
    return 0 if longer >= 0.99 and not tally["long", "wrong"] and not tally["binary", "wrong"] else 1


if __name__ == "__main__":
    sys.exit(main())
