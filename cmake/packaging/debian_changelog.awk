# Turns CHANGELOG.md into a Debian changelog. Needs package, version and maintainer; fails when the
# newest section is not that version's.
function finish(    command, date) {
    if (!day) return
    command = "date --rfc-email --utc --date=" day
    command | getline date
    close(command)
    printf "\n -- %s  %s\n", maintainer, date
}
/^## / {
    finish()
    if (!day && $2 != version) {
        print "CHANGELOG.md begins with " $2 ", not with " version > "/dev/stderr"
        exit 1
    }
    if (day) print ""
    day = $4
    printf "%s (%s) bookworm; urgency=medium\n\n", package, $2
    next
}
!day { next }
/^### / { next }
/^- / { print "  * " substr($0, 3); next }
/^  / { print "    " substr($0, 3) }
END { finish() }
