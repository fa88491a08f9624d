#!/usr/bin/python3
"""usage: read_layers.py DRAWING...: the layers as tab-separated values, read by a library that shares nothing with
layeredit. Each drawing begins with a line of titles.

The library adds the layers 0 and Defpoints, behind all others, where a drawing lacks them.
"""

import sys

from ezdxf import recover

COLUMNS = ["Name", "Color", "LineType", "LineWeight", "Plot", "On", "Frozen", "Locked", "Description"]


def description_of(layer):
    if layer.xdata is None:
        return ""
    for application, tags in layer.xdata.data.items():
        if application.lower() == "acaeclayerstandard":
            texts = [tag.value for tag in tags if tag.code == 1000]
            return texts[1] if len(texts) > 1 else ""
    return ""


def row_of(drawing, layer):
    weight = layer.dxf.lineweight
    line_type = layer.dxf.linetype
    if line_type in drawing.linetypes:
        line_type = drawing.linetypes.get(line_type).dxf.name
    return [
        layer.dxf.name,
        "#%02x%02x%02x" % layer.rgb if layer.rgb is not None else str(layer.color),
        line_type,
        "default" if weight < 0 else "%.2f" % (weight / 100),
        str(layer.dxf.plot),
        str(int(layer.is_on())),
        str(int(layer.is_frozen())),
        str(int(layer.is_locked())),
        description_of(layer),
    ]


def main():
    sys.stdout.reconfigure(encoding="utf-8")
    for name in sys.argv[1:]:
        drawing, _ = recover.readfile(name)
        print("\t".join(COLUMNS))
        for layer in drawing.layers:
            print("\t".join(row_of(drawing, layer)))


if __name__ == "__main__":
    main()
