"""Whether two pictures look the same to someone who has both before them."""

import subprocess

# Edges of letters and curves are drawn a little differently by another version of a library, so a
# breath of blur comes first. What is left may differ by this much of the range of a colour, and in
# so many pixels more.
BLUR = "0x1"
COLOR_TOLERANCE = "6%"
PIXEL_TOLERANCE = 40


def size_of(picture):
    return subprocess.check_output(["identify", "-format", "%wx%h", str(picture)], text=True)


def content_of(picture):
    return subprocess.check_output(["identify", "-format", "%#", str(picture)], text=True)


def differing_pixels(first, second):
    """None: they do not even have the same size."""
    if size_of(first) != size_of(second):
        return None
    distortion = subprocess.check_output(
        ["convert", str(first), str(second), "-alpha", "off", "-blur", BLUR,
         "-fuzz", COLOR_TOLERANCE, "-metric", "AE", "-compare",
         "-format", "%[distortion]", "info:"],
        text=True)
    return round(float(distortion))


def look_the_same(first, second):
    if content_of(first) == content_of(second):
        return True
    differing = differing_pixels(first, second)
    return differing is not None and differing <= PIXEL_TOLERANCE


def cropped(picture, area):
    """A part of a picture, as a picture beside it."""
    part = picture.with_name(f"{picture.stem}-{area}{picture.suffix}")
    subprocess.run(["convert", str(picture), "-crop", area, "+repage", str(part)], check=True)
    return part


def colors_of(picture):
    """Three bytes for each pixel, row by row."""
    return subprocess.check_output(["convert", str(picture), "-depth", "8", "rgb:-"])


def difference_from_enlarged(small, large):
    """How far a picture is from a smaller one that was made as large, whichever way was taken."""
    differences = []
    for method in ("point", "triangle", "catrom"):
        differences.append(float(subprocess.check_output(
            ["convert", str(small), "-filter", method, "-resize", f"{size_of(large)}!",
             str(large), "-metric", "RMSE", "-compare", "-format", "%[distortion]", "info:"],
            text=True)))
    return min(differences)


def draw_difference(first, second, path):
    subprocess.run(["compare", "-fuzz", COLOR_TOLERANCE, str(first), str(second), str(path)],
                   check=False, stderr=subprocess.DEVNULL)


def keep_small(picture):
    """The same picture without what a program wrote beside it, packed as well as it can be."""
    subprocess.run(["mogrify", "-alpha", "off", "-strip", "-define", "png:compression-level=9",
                    "-define", "png:exclude-chunk=all", str(picture)], check=True)
