#!/bin/sh
# The unpacked package runs without the system's Qt: every Qt library that the
# editor and the commands need resolves inside the package folder (ldd), and
# with the system's Qt libraries and plugins hidden from the loader the editor
# puts up its version question under Xvfb (the xcb plugin and its libraries
# load from the package) and a command draws a map (the offscreen plugin).
# Argument: the archive. Needs root or user namespaces, Xvfb and xdotool.
set -eu
if [ "${1:-}" != --hidden ]; then
    scratch=$(mktemp -d)
    trap 'rm -rf "$scratch"' EXIT
    tar -xzf "$1" -C "$scratch"
    folder=$(echo "$scratch"/Tarnwey-*)
    for file in "$folder"/tarnwey "$folder"/tarnwey-*; do
        outside=$(ldd "$file" | grep -E 'libQt6|not found' | grep -v "=> $folder/lib/" || true)
        [ -z "$outside" ] || { echo "${file#$folder/} needs $outside"; exit 1; }
    done
    echo "Every Qt library resolves inside the package folder."
    # A mount namespace of its own, where the hiding ends with the check.
    exec unshare -r -m sh "$0" --hidden "$folder"
fi

folder=$2
for library in /usr/lib/*-linux-gnu/libQt6*.so.* /usr/lib/*-linux-gnu/qt6/plugins/*/*.so; do
    [ -L "$library" ] || mount --bind /dev/null "$library"
done
[ ! -s "$(readlink -f /usr/lib/x86_64-linux-gnu/libQt6Core.so.6)" ]
echo "The system's Qt libraries are hidden."
env -u QT_PLUGIN_PATH -u QT_QPA_PLATFORM "$folder/tarnwey-render" --map 0 \
    "$folder" "$folder/MorlickRed.gb" "$folder/../pictures" >/dev/null
ls "$folder"/../pictures/*.png >/dev/null
echo "tarnwey-render draws a map."
cd "$folder"
xvfb-run -a -s "-screen 0 1280x1024x24" sh -c '
    env -u QT_PLUGIN_PATH -u QT_QPA_PLATFORM ./tarnwey MorlickRed.gb &
    editor=$!
    for _ in $(seq 100); do
        if xdotool search --onlyvisible --name "^Tarnwey$" >/dev/null; then
            echo "The editor is up and asks for the version."
            kill $editor
            exit 0
        fi
        sleep 0.1
    done
    kill $editor
    echo "The editor did not come up."
    exit 1'
