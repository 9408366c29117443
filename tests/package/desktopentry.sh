#!/bin/sh
# install-desktop-entry in a folder whose path holds $, spaces, quotes, a
# backslash and % writes an entry that desktop-file-validate passes and that
# starts the editor in that folder; --help and a refused argument install
# nothing, and --remove says when there is nothing to remove.
# Argument: the folder of install-desktop-entry and tarnwey.desktop.
set -u
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
folder="$scratch/Tarnwey \$HOME \"1\" 'b' back\\slash 100%"
mkdir -p "$folder"
cp "$1/install-desktop-entry" "$1/tarnwey.desktop" "$folder/"
touch "$folder/tarnwey.png"
export XDG_DATA_HOME="$scratch/data"
entry="$XDG_DATA_HOME/applications/tarnwey.desktop"
fail() { echo "$*"; exit 1; }

"$folder/install-desktop-entry" --help | grep -q '^Usage: install-desktop-entry' || fail "--help: no usage"
"$folder/install-desktop-entry" --all 2>/dev/null
[ $? -eq 2 ] || fail "--all: not refused with status 2"
[ ! -e "$entry" ] || fail "--help or --all installed the entry"
"$folder/install-desktop-entry" --remove | grep -q 'not in the applications menu' || fail "--remove: nothing said"

"$folder/install-desktop-entry" >/dev/null || fail "the install failed"
desktop-file-validate "$entry" || fail "the entry is not valid"
grep -qx 'Exec="[^ ]*/Tarnwey \\\\$HOME \\\\"1\\\\" '"'b'"' back\\\\\\\\slash 100%%/tarnwey" %f' "$entry" ||
    fail "Exec does not name the folder: $(grep ^Exec "$entry")"
grep -q '^MimeType=application/x-gameboy-rom;' "$entry" || fail "no MimeType"
"$folder/install-desktop-entry" --remove >/dev/null && [ ! -e "$entry" ] || fail "--remove left the entry"
