"""Writes a renamed copy of a libre typeface, or a licence file to stand beside a font.

The licence of the typefaces allows changed copies, asks that they carry neither the reserved nor
the original name as their own, and that copyright and licence stay with them. Outlines, metrics
and the dates inside stay untouched, so that the same source gives the same bytes.
"""

import argparse
import sys

from fontTools.ttLib import TTFont

COPYRIGHT, FAMILY, STYLE, UNIQUE, FULL, VERSION, POSTSCRIPT, TRADEMARK = range(8)
LICENCE, LICENCE_ADDRESS = 13, 14
TYPOGRAPHIC_FAMILY, TYPOGRAPHIC_STYLE, MAC_FULL, CID_NAME, WWS_FAMILY, WWS_STYLE = (
    16, 17, 18, 20, 21, 22)
# These speak about the original and its authors, and have to stay as they are.
KEPT = {COPYRIGHT, VERSION, 8, 9, 11, 12, LICENCE, LICENCE_ADDRESS}

REGULAR_WEIGHT = 400
SELECTION_ITALIC, SELECTION_BOLD, SELECTION_REGULAR = 1 << 0, 1 << 5, 1 << 6


def names_of(family, style, postscript, version):
    """The name records of a face. Only Regular and Bold are styles every system can link, so any
    other one becomes a family of its own, with the wanted pair in the typographic records."""
    linked = style in ("Regular", "Bold")
    full = family if style == "Regular" else f"{family} {style}"
    names = {
        FAMILY: family if linked else f"{family} {style}",
        STYLE: style if linked else "Regular",
        UNIQUE: f"{version};{postscript}",
        FULL: full,
        POSTSCRIPT: postscript,
    }
    if not linked:
        names |= {TYPOGRAPHIC_FAMILY: family, TYPOGRAPHIC_STYLE: style}
    return names


def rename(font, family, style, postscript, weight):
    table = font["name"]
    original = table.getBestFamilyName()
    version = (table.getDebugName(VERSION) or "Version 1").removeprefix("Version ")
    wanted = names_of(family, style, postscript, version)
    own = {FAMILY, STYLE, UNIQUE, FULL, POSTSCRIPT, TRADEMARK, TYPOGRAPHIC_FAMILY,
           TYPOGRAPHIC_STYLE, MAC_FULL, CID_NAME, WWS_FAMILY, WWS_STYLE}
    table.names = [record for record in table.names if record.nameID not in own]
    for identifier, text in sorted(wanted.items()):
        table.setName(text, identifier, 3, 1, 0x409)
    for record in table.names:
        if record.nameID not in KEPT and original in record.toUnicode():
            sys.exit(f"error: name record {record.nameID} still says \"{original}\"")

    os2 = font["OS/2"]
    os2.usWeightClass = weight
    os2.fsSelection &= ~(SELECTION_ITALIC | SELECTION_BOLD | SELECTION_REGULAR)
    os2.fsSelection |= SELECTION_BOLD if style == "Bold" else SELECTION_REGULAR
    font["head"].macStyle = 1 if style == "Bold" else 0

    if "CFF " in font:
        cff = font["CFF "].cff
        cff.fontNames = [postscript]
        top = cff.topDictIndex[0]
        top.FamilyName, top.FullName = family, wanted[FULL]
        if "Weight" in top.rawDict:
            top.Weight = style


def licence_of(font, renamed_to, body):
    """The text that stands beside the font: whose work it is, what was changed, the licence."""
    notices = []
    for identifier in (COPYRIGHT, LICENCE):
        text = (font["name"].getDebugName(identifier) or "").replace("\r\n", "\n").strip()
        if "Copyright" in text and text not in notices:
            notices.append(text)
    if not notices:
        sys.exit("error: the font names no copyright holder")
    if renamed_to:
        notices.append(f"Changed for Larkvox: the names inside the font say \"{renamed_to}\".")
    return "\n\n".join(notices) + "\n\n" + body


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("source", help="the font to read")
    parser.add_argument("--output", help="the renamed font to write")
    parser.add_argument("--family")
    parser.add_argument("--style", default="Regular")
    parser.add_argument("--postscript")
    parser.add_argument("--weight", type=int, default=REGULAR_WEIGHT)
    parser.add_argument("--licence", help="the licence file to write")
    parser.add_argument("--licence-body", help="the text of the licence without its notices")
    arguments = parser.parse_args()

    try:
        font = TTFont(arguments.source, recalcTimestamp=False, recalcBBoxes=False)
        if arguments.licence:
            with open(arguments.licence_body, encoding="utf-8") as file:
                text = licence_of(font, arguments.family, file.read())
            with open(arguments.licence, "w", encoding="utf-8", newline="\n") as file:
                file.write(text)
        if arguments.output:
            if not arguments.family or not arguments.postscript:
                parser.error("a renamed font needs --family and --postscript")
            rename(font, arguments.family, arguments.style, arguments.postscript,
                   arguments.weight)
            font.save(arguments.output)
    except OSError as error:
        sys.exit(f"error: {error}")


if __name__ == "__main__":
    main()
