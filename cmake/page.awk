# A page as it stands elsewhere than in this tree: links to files that are not there become plain text.
#
#   awk -v page=Docs/ForHosts.md -v there="README.md Docs/ Examples/" -f page.awk Docs/ForHosts.md
#
# prints the page for a folder that holds, in the places of this tree, the files and folders named by "there".
# With -v reference=1 it prints it for Doxygen instead: links and headings get labels, since Doxygen of
# this version knows no others, and a page is named by its file.

BEGIN {
    count = split(there, places, " ")
}

FNR == 1 {
    if (page == "") {
        page = FILENAME
        sub("^" root "/", "", page)
    }
    folder = page
    if (!sub(/\/[^\/]*$/, "/", folder)) {
        folder = ""
    }
}

function nameOf(path)
{
    sub(/.*\//, "", path)
    sub(/\.md$/, "", path)
    return path
}

function slug(heading)
{
    heading = tolower(heading)
    gsub(/[^a-z0-9 _-]/, "", heading)
    gsub(/ /, "-", heading)
    return heading
}

function isThere(path,    i)
{
    for (i = 1; i <= count; ++i) {
        if (path == places[i] || (places[i] ~ /\/$/ && index(path "/", places[i]) == 1)) {
            return 1
        }
    }
    return 0
}

# "[text](target)" as it reads at the new place.
function moved(link,    text, target, path, anchor)
{
    text = link
    sub(/\]\(.*/, "", text)
    sub(/^\[/, "", text)
    target = link
    sub(/.*\]\(/, "", target)
    sub(/\)$/, "", target)
    if (target ~ /^[a-z]+:/) {
        return link
    }
    anchor = target ~ /#/ ? target : ""
    sub(/^[^#]*#/, "", anchor)
    path = target
    sub(/#.*/, "", path)
    path = path == "" ? page : folder path
    while (sub(/[^\/]+\/\.\.\//, "", path)) { }
    if (!isThere(path)) {
        return text
    }
    return reference && path ~ /\.md$/ ? "[" text "](@ref " nameOf(path) (anchor == "" ? "" : "-" anchor) ")" : link
}

/^```/ {
    inCode = !inCode
}

!inCode && !/^    / {
    rest = $0
    line = ""
    while (match(rest, /\[[^][]*\]\([^)]*\)/)) {
        line = line substr(rest, 1, RSTART - 1) moved(substr(rest, RSTART, RLENGTH))
        rest = substr(rest, RSTART + RLENGTH)
    }
    $0 = line rest
    if (reference && /^#+ / && nameOf(page) != "mainpage") {
        heading = $0
        sub(/^#+ /, "", heading)
        $0 = $0 " {#" nameOf(page) (/^# / ? "" : "-" slug(heading)) "}"
    }
}

{
    print
}
