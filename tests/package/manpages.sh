#!/bin/sh
# Each manual page lists under OPTIONS every option that its program's --help
# lists. Arguments: the folder of the pages' scdoc sources, then the programs.
pages=$1
shift
status=0
for program in "$@"; do
    name=$(basename "$program")
    listed=$(sed -n '/^# OPTIONS/,/^# EXIT STATUS/p' "$pages/$name.1.scd")
    for option in $("$program" --help | grep -o -- '--[a-z][a-z-]*' | sort -u); do
        if ! printf '%s\n' "$listed" | grep -q -- "^\*$option\*"; then
            echo "$name.1 does not list $option"
            status=1
        fi
    done
done
exit $status
