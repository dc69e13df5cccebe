#!/bin/sh
# Tests what installing the build leaves where: prints one line per case, and is 0 when all passed.
#
#   tst_install.sh <build folder> <prefix> <folder of QML modules, below it>
set -u
export LC_ALL=C
build=$1
prefix=$2
module=$3/FileBrowser
source=$(CDPATH='' cd -- "$(dirname -- "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
result=0

# same <case> <actual> <expected>
same() {
    if [ "$2" = "$3" ]; then
        echo "PASS   : $1"
    else
        printf 'FAIL!  : %s\n   Actual   %s\n   Expected %s\n' "$1" "$2" "$3"
        result=1
    fi
}

# files <folder>: every file below it, in one line.
files() {
    (cd "$1" && find . -type f | sort | tr '\n' ' ')
}

# refusal <qmake>: what CMake says of it first, in one line.
refusal() {
    cmake -S "$source" -B "$scratch/refused" -DQT_QMAKE_EXECUTABLE="$1" 2>&1 |
        sed -n '1,/\.$/ s/^  *//p' | tr '\n' ' '
}

cmake --install "$build" --prefix "$scratch/moved" >/dev/null
same "the prefix can be another one" "$(files "$scratch/moved")" \
    "./$module/libfilebrowser.so ./$module/plugins.qmltypes ./$module/qmldir "

DESTDIR=$scratch/staged cmake --install "$build" --strip >/dev/null
same "a stage holds the folders of the machine" "$(files "$scratch/staged")" \
    ".$prefix/$module/libfilebrowser.so .$prefix/$module/plugins.qmltypes .$prefix/$module/qmldir "

same "what is no qmake is refused first" "$(refusal /nowhere/qmake)" \
    "QT_QMAKE_EXECUTABLE=/nowhere/qmake is no qmake that can be run here: give the path of the qmake of a Qt 4.8. "

printf '#!/bin/sh\necho 5.6.3\n' >"$scratch/qmake"
chmod +x "$scratch/qmake"
case $(refusal "$scratch/qmake") in
"QT_QMAKE_EXECUTABLE=$scratch/qmake is the qmake of Qt 5.6.3: "*) same "so is that of another Qt" 1 1 ;;
*) same "so is that of another Qt" "$(refusal "$scratch/qmake")" "the version, and what is needed" ;;
esac
exit $result
