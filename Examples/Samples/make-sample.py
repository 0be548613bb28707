#!/usr/bin/env python3
"""Makes coordination.bcf, the sample archive beside this script.

The story: on the second storey of a clinic a supply duct runs through a beam, the same duct lacks a
fire damper where it enters a shaft, and a question about a door has been answered. Guids, dates and
pictures are computed from what stands here, so a second run makes the same archive.
"""

import struct
import uuid
import zipfile
import zlib
from pathlib import Path
from xml.etree import ElementTree

ARCHIVE = Path(__file__).with_name("coordination.bcf")
ZIP_DATE = (2024, 3, 14, 9, 0, 0)

ARCHITECT = "maria.lindqvist@example.com"
STRUCTURE = "jonas.weber@example.com"
VENTILATION = "aino.virtanen@example.com"
FIRE_SAFETY = "zoë.o’brien@example.com"


# Identifiers

def guid(name):
    """The guid of a topic, comment or viewpoint."""
    return str(uuid.uuid5(uuid.NAMESPACE_URL, "https://example.com/clinic/" + name))


def ifc_guid(name):
    """The guid of a model element: 128 bits as 22 digits of base 64, the first of them 0 to 3."""
    digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$"
    number = uuid.uuid5(uuid.NAMESPACE_URL, "https://example.com/clinic/" + name).int
    return "".join(digits[number >> shift & 63] for shift in range(126, -6, -6))


# Pictures

WHITE, PAPER, INK = (255, 255, 255), (246, 247, 249), (52, 58, 70)
CONCRETE, STEEL, CLASH = (186, 189, 194), (92, 148, 201), (214, 62, 62)
FLOOR, WOOD, FINE = (226, 228, 232), (196, 154, 108), (62, 150, 96)


class Picture:
    """A small canvas with filled polygons, drawn three times as large for smooth edges."""

    SCALE = 3

    def __init__(self, width, height, background=PAPER):
        self.width, self.height = width, height
        row = bytes(background) * (width * self.SCALE)
        self.rows = [bytearray(row) for _ in range(height * self.SCALE)]

    def polygon(self, points, colour):
        points = [(x * self.SCALE, y * self.SCALE) for x, y in points]
        edges = list(zip(points, points[1:] + points[:1]))
        for number, row in enumerate(self.rows):
            y = number + 0.5
            crossings = sorted(x1 + (y - y1) * (x2 - x1) / (y2 - y1)
                               for (x1, y1), (x2, y2) in edges if (y1 <= y) != (y2 <= y))
            for left, right in zip(crossings[::2], crossings[1::2]):
                first = max(0, round(left))
                last = min(self.width * self.SCALE, round(right))
                if last > first:
                    row[first * 3:last * 3] = bytes(colour) * (last - first)

    def rectangle(self, x1, y1, x2, y2, colour):
        self.polygon([(x1, y1), (x2, y1), (x2, y2), (x1, y2)], colour)

    def line(self, x1, y1, x2, y2, colour=INK, width=1.5):
        length = ((x2 - x1) ** 2 + (y2 - y1) ** 2) ** 0.5
        dx, dy = (y1 - y2) / length * width / 2, (x2 - x1) / length * width / 2
        self.polygon([(x1 + dx, y1 + dy), (x2 + dx, y2 + dy),
                      (x2 - dx, y2 - dy), (x1 - dx, y1 - dy)], colour)

    def frame(self, x1, y1, x2, y2, colour, width=1.5, dash=None):
        corners = [(x1, y1), (x2, y1), (x2, y2), (x1, y2), (x1, y1)]
        for (ax, ay), (bx, by) in zip(corners, corners[1:]):
            length = max(abs(bx - ax), abs(by - ay))
            step = dash or length
            for start in range(0, int(length), 2 * int(step)):
                s, e = start / length, min(1.0, (start + step) / length)
                self.line(ax + (bx - ax) * s, ay + (by - ay) * s,
                          ax + (bx - ax) * e, ay + (by - ay) * e, colour, width)

    def hatch(self, x1, y1, x2, y2, colour, step=9):
        for offset in range(int(x1 - (y2 - y1)), int(x2), step):
            left, right = max(x1, offset), min(x2, offset + y2 - y1)
            if right > left:
                self.line(left, y2 - (left - offset), right, y2 - (right - offset), colour, 0.7)

    def box(self, low, high, colour):
        """A box in the model, in metres, seen from the front left and above."""
        (x1, y1, z1), (x2, y2, z2) = low, high
        shades = [tuple(int(part * shade) for part in colour) for shade in (0.72, 0.88, 1.0)]
        self.polygon(self.project((x1, y1, z1), (x1, y2, z1), (x1, y2, z2), (x1, y1, z2)), shades[0])
        self.polygon(self.project((x1, y1, z1), (x2, y1, z1), (x2, y1, z2), (x1, y1, z2)), shades[1])
        self.polygon(self.project((x1, y1, z2), (x2, y1, z2), (x2, y2, z2), (x1, y2, z2)), shades[2])

    def project(self, *corners):
        metre = 34
        return [(self.width * 0.43 + (x - y) * 0.866 * metre,
                 self.height * 1.10 - ((x + y) * 0.5 + z) * metre) for x, y, z in corners]

    def png(self):
        lines = []
        for top in range(0, len(self.rows), self.SCALE):
            group = self.rows[top:top + self.SCALE]
            sums = [sum(column) for column in zip(*group)]
            line = bytearray(1)
            for left in range(0, len(sums), 3 * self.SCALE):
                for part in range(3):
                    line.append(sum(sums[left + part:left + 3 * self.SCALE:3]) // self.SCALE ** 2)
            lines.append(bytes(line))

        def chunk(kind, data):
            return (struct.pack(">I", len(data)) + kind + data
                    + struct.pack(">I", zlib.crc32(kind + data)))

        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
                + chunk(b"IDAT", zlib.compress(b"".join(lines), 9)) + chunk(b"IEND", b""))


def picture_duct_in_beam():
    picture = Picture(360, 240)
    picture.box((0.0, -0.8, 1.2), (6.0, 4.6, 1.3), FLOOR)
    picture.box((2.8, 2.3, 2.75), (3.4, 4.6, 3.05), STEEL)
    picture.box((0.0, 2.0, 2.6), (6.0, 2.3, 3.2), CONCRETE)
    picture.box((2.72, 1.96, 2.69), (3.48, 2.0, 3.11), CLASH)
    picture.box((2.8, -0.8, 2.75), (3.4, 1.96, 3.05), STEEL)
    return picture.png()


def picture_section_of_beam():
    picture = Picture(360, 240, WHITE)
    picture.rectangle(0, 40, 360, 70, FLOOR)
    picture.rectangle(20, 70, 340, 170, CONCRETE)
    picture.hatch(20, 70, 340, 170, (150, 154, 160))
    picture.frame(20, 70, 340, 170, INK)
    picture.rectangle(130, 98, 230, 148, STEEL)
    picture.frame(130, 98, 230, 148, CLASH, 3)
    picture.line(130, 98, 230, 148, WHITE)
    picture.line(130, 148, 230, 98, WHITE)
    picture.line(250, 148, 250, 170, CLASH)
    for y in (148, 170):
        picture.line(244, y, 256, y, CLASH)
    return picture.png()


def picture_missing_damper():
    picture = Picture(360, 240, WHITE)
    for top, bottom in ((10, 92), (148, 230)):
        picture.rectangle(210, top, 232, bottom, CONCRETE)
        picture.hatch(210, top, 232, bottom, (150, 154, 160))
        picture.frame(210, top, 232, bottom, INK)
    picture.rectangle(20, 98, 300, 142, (206, 224, 240))
    for y in (98, 142):
        picture.line(20, y, 300, y, STEEL, 3)
    for x in (80, 130):
        picture.line(x, 120, x + 26, 120)
        picture.polygon([(x + 36, 120), (x + 24, 114), (x + 24, 126)], INK)
    picture.frame(196, 86, 246, 154, CLASH, 3, dash=7)
    return picture.png()


def picture_door():
    picture = Picture(240, 240)
    picture.rectangle(0, 206, 240, 240, FLOOR)
    picture.line(0, 206, 240, 206, INK)
    picture.rectangle(72, 40, 168, 206, INK)
    picture.rectangle(78, 46, 162, 206, WOOD)
    picture.rectangle(86, 56, 154, 110, (206, 224, 240))
    picture.rectangle(146, 128, 156, 132, INK)
    picture.line(184, 70, 194, 82, FINE, 4)
    picture.line(194, 82, 214, 54, FINE, 4)
    return picture.png()


def picture_mark():
    picture = Picture(48, 48, WHITE)
    picture.frame(4, 4, 44, 44, CLASH, 4)
    picture.line(12, 12, 36, 36, CLASH, 4)
    picture.line(12, 36, 36, 12, CLASH, 4)
    return picture.png()


# XML

def node(tag, *content, **attributes):
    """An element; texts among its content become its text, None is left out."""
    element = ElementTree.Element(tag, attributes)
    for part in content:
        if isinstance(part, str):
            element.text = part
        elif part is not None:
            element.append(part)
    return element


def xml(root):
    ElementTree.indent(root, "    ")
    return ElementTree.tostring(root, encoding="UTF-8", xml_declaration=True) + b"\n"


def point(tag, x, y, z):
    return node(tag, node("X", str(x)), node("Y", str(y)), node("Z", str(z)))


def camera(kind, position, direction, up, number):
    return node(kind, point("CameraViewPoint", *position), point("CameraDirection", *direction),
                point("CameraUpVector", *up),
                node("FieldOfView" if kind == "PerspectiveCamera" else "ViewToWorldScale", number))


def component(name, tool_id=None):
    return node("Component", tool_id and node("OriginatingSystem", "Clinic models"),
                tool_id and node("AuthoringToolId", tool_id), IfcGuid=ifc_guid(name))


def comment(topic, name, date, author, text, view=None, reply=None):
    return node("Comment", node("Date", date), node("Author", author), node("Comment", text),
                node("Topic", Guid=guid(topic)),
                node("Viewpoint", Guid=guid(view)) if view else None,
                node("ReplyToComment", Guid=guid(reply)) if reply else None, Guid=guid(name))


def viewpoints(name, number=""):
    return node("Viewpoints", node("Viewpoint", f"viewpoint{number}.bcfv"),
                node("Snapshot", f"snapshot{number}.png"), Guid=guid(name))


def model_file(name, date, project, outside="true"):
    return node("File", node("Filename", name), node("Date", date), IfcProject=ifc_guid(project),
                IfcSpatialStructureElement=ifc_guid("storey 2"), isExternal=outside)


# The archive

DUCT_FILE = "storey-2-ducts.ifc"
DUCT_IFC = f"""ISO-10303-21;
HEADER;
FILE_DESCRIPTION(('The duct that meets beam B-204, cut out of the ventilation model'),'2;1');
FILE_NAME('{DUCT_FILE}','2024-03-12T08:30:00',('Aino Virtanen'),(''),'','','');
FILE_SCHEMA(('IFC4'));
ENDSEC;
DATA;
#1=IFCDUCTSEGMENT('{ifc_guid("duct D-31")}',$,'Duct D-31 600x300',$,$,$,$,'D-31',.RIGIDSEGMENT.);
ENDSEC;
END-ISO-10303-21;
"""


def topic_beam():
    """A clash seen from two sides, with its discussion."""
    topic = "topic beam"
    markup = node(
        "Markup",
        node("Header",
             model_file("clinic-structure.ifc", "2024-03-08T16:45:00Z", "structure"),
             model_file("../" + DUCT_FILE, "2024-03-12T07:30:00Z", "ventilation", "false")),
        node("Topic",
             node("ReferenceLink", "https://example.com/clinic/clashes/204"),
             node("Title", "Supply duct D-31 runs through beam B-204"),
             node("Priority", "High"), node("Index", "1"),
             node("Labels", "Structure"), node("Labels", "Ventilation"),
             node("CreationDate", "2024-03-11T08:12:00Z"), node("CreationAuthor", ARCHITECT),
             node("ModifiedDate", "2024-03-13T14:05:00Z"), node("ModifiedAuthor", STRUCTURE),
             node("AssignedTo", VENTILATION),
             node("Description", "Duct D-31 (600 × 300 mm) crosses beam B-204 at a third of its span. "
                  "No opening is planned there, and only 150 mm of concrete are left under the duct.\n"
                  "Either the duct drops below the beam, or we need an opening with reinforcement."),
             node("DocumentReference",
                  node("ReferencedDocument", "https://example.com/clinic/beam-schedule.pdf"),
                  node("Description", "Beam schedule, storey 2, revision C"),
                  Guid=guid("beam schedule"), isExternal="true"),
             node("RelatedTopics", Guid=guid("topic damper")),
             Guid=guid(topic), TopicType="Clash", TopicStatus="Open"),
        comment(topic, "beam 1", "2024-03-11T08:20:00Z", ARCHITECT,
                "Found in this morning’s merge of the two models. Please have a look at the first view.",
                view="view beam"),
        comment(topic, "beam 2", "2024-03-12T07:41:00Z", VENTILATION,
                "We can drop the duct by 350 mm, but then the ceiling of the corridor comes down to "
                "2.35 m. The duct alone is attached as a model of its own.", reply="beam 1"),
        comment(topic, "beam 3", "2024-03-13T14:05:00Z", STRUCTURE,
                "An opening of 650 × 350 mm is possible if it moves up by 60 mm. See the section: the "
                "red line shows what must stay below it.", view="section beam", reply="beam 2"),
        viewpoints("view beam"), viewpoints("section beam", 1))

    view = node(
        "VisualizationInfo",
        node("Components",
             node("ViewSetupHints", SpacesVisible="false", SpaceBoundariesVisible="false",
                  OpeningsVisible="true"),
             node("Selection", component("duct D-31", "duct:31"), component("beam B-204", "beam:204")),
             node("Visibility", node("Exceptions", component("ceiling 2.07"), component("slab 3"),
                                     component("lights 2.07")), DefaultVisibility="true"),
             node("Coloring", node("Color", component("beam B-204"), Color="BABDC2"),
                  node("Color", component("duct D-31"), Color="5C94C9"))),
        camera("PerspectiveCamera", (-1.5, -3.2, 5.4), (0.5826, 0.6796, -0.4458),
               (0.2902, 0.3385, 0.8951), "60"),
        node("Bitmaps", node("Bitmap", "PNG"), node("Reference", "clash-mark.png"),
             point("Location", 3.1, 1.95, 2.9), point("Normal", 0, -1, 0), point("Up", 0, 0, 1),
             node("Height", "0.4")),
        Guid=guid("view beam"))

    section = node(
        "VisualizationInfo",
        node("Components",
             node("Selection", component("duct D-31")),
             node("Visibility", node("Exceptions", component("beam B-204"), component("duct D-31"),
                                     component("slab 3")), DefaultVisibility="false")),
        camera("OrthogonalCamera", (3.1, -2.0, 2.9), (0, 1, 0), (0, 0, 1), "2.4"),
        node("Lines", node("Line", point("StartPoint", 3.5, 2.15, 2.6),
                           point("EndPoint", 3.5, 2.15, 2.75))),
        node("ClippingPlanes", node("ClippingPlane", point("Location", 3.0, 2.15, 2.9),
                                    point("Direction", 0, -1, 0))),
        Guid=guid("section beam"))

    return {"markup.bcf": xml(markup),
            "viewpoint.bcfv": xml(view), "snapshot.png": picture_duct_in_beam(),
            "viewpoint1.bcfv": xml(section), "snapshot1.png": picture_section_of_beam(),
            "clash-mark.png": picture_mark()}


def topic_damper():
    """A request with a snippet and a view that has both cameras."""
    topic = "topic damper"
    markup = node(
        "Markup",
        node("Header", model_file("clinic-ventilation.ifc", "2024-03-12T07:30:00Z", "ventilation")),
        node("Topic",
             node("Title", "Fire damper missing where duct D-31 enters shaft S3"),
             node("Priority", "Critical"), node("Index", "2"),
             node("Labels", "Ventilation"), node("Labels", "Fire safety"),
             node("CreationDate", "2024-03-12T09:30:00Z"), node("CreationAuthor", FIRE_SAFETY),
             node("AssignedTo", VENTILATION),
             node("Description", "The wall of shaft S3 is EI 90. The duct passes it without a damper."),
             node("BimSnippet", node("Reference", "https://example.com/clinic/damper.ifc"),
                  node("ReferenceSchema", "https://example.com/schemas/ifc4.exp"),
                  SnippetType="IfcDamper", isExternal="true"),
             node("RelatedTopics", Guid=guid("topic beam")),
             Guid=guid(topic), TopicType="Request", TopicStatus="In progress"),
        comment(topic, "damper 1", "2024-03-12T09:34:00Z", FIRE_SAFETY,
                "Please add a damper of class EI 90 (ve ho i↔o) S, with a hatch that can be reached "
                "from the corridor.", view="view damper"),
        viewpoints("view damper"))
    view = node(
        "VisualizationInfo",
        node("Components",
             node("Selection", component("duct D-31"), component("wall S3 west")),
             node("Visibility", DefaultVisibility="true"),
             node("Coloring", node("Color", component("wall S3 west"), component("wall S3 south"),
                                   Color="D63E3E"))),
        camera("PerspectiveCamera", (1.2, 6.0, 2.9), (0.8, 0.6, 0), (0, 0, 1), "45"),
        camera("OrthogonalCamera", (3.1, 7.4, 6.0), (0, 0, -1), (0, 1, 0), "3.2"),
        Guid=guid("view damper"))
    return {"markup.bcf": xml(markup), "viewpoint.bcfv": xml(view),
            "snapshot.png": picture_missing_damper()}


def topic_door():
    """A question with its answer."""
    topic = "topic door"
    markup = node(
        "Markup",
        node("Topic",
             node("Title", "Which fire rating for door D-117?"),
             node("Priority", "Normal"), node("Index", "3"), node("Labels", "Fire safety"),
             node("CreationDate", "2024-03-06T13:00:00Z"), node("CreationAuthor", ARCHITECT),
             node("ModifiedDate", "2024-03-07T06:55:00Z"), node("ModifiedAuthor", ARCHITECT),
             node("AssignedTo", FIRE_SAFETY),
             Guid=guid(topic), TopicType="Question", TopicStatus="Closed"),
        comment(topic, "door 1", "2024-03-06T13:02:00Z", ARCHITECT,
                "The door schedule says EI 30, the fire plan EI 60. Which one holds?", view="view door"),
        comment(topic, "door 2", "2024-03-06T15:40:00Z", FIRE_SAFETY,
                "EI 30 is enough: the corridor is one fire compartment. I have changed the fire plan.",
                reply="door 1"),
        comment(topic, "door 3", "2024-03-07T06:55:00Z", ARCHITECT, "Thank you, closed.", reply="door 2"),
        viewpoints("view door"))
    view = node(
        "VisualizationInfo",
        node("Components", node("Selection", component("door D-117", "door:117")),
             node("Visibility", DefaultVisibility="true")),
        camera("PerspectiveCamera", (8.0, 1.0, 1.6), (0, 1, 0), (0, 0, 1), "60"),
        Guid=guid("view door"))
    return {"markup.bcf": xml(markup), "viewpoint.bcfv": xml(view), "snapshot.png": picture_door()}


def entries():
    yield "bcf.version", xml(node("Version", node("DetailedVersion", "2.1"), VersionId="2.1"))
    yield "project.bcfp", xml(node("ProjectExtension",
                                   node("Project", node("Name", "Harbour Street Clinic"),
                                        ProjectId=guid("project")),
                                   node("ExtensionSchema", "")))
    for name, files in (("topic beam", topic_beam()), ("topic damper", topic_damper()),
                        ("topic door", topic_door())):
        for file, content in files.items():
            yield f"{guid(name)}/{file}", content
    yield DUCT_FILE, DUCT_IFC.encode()


def main():
    with zipfile.ZipFile(ARCHIVE, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name, content in entries():
            info = zipfile.ZipInfo(name, ZIP_DATE)
            info.compress_type = zipfile.ZIP_DEFLATED
            info.external_attr = 0o644 << 16
            archive.writestr(info, content)


if __name__ == "__main__":
    main()
