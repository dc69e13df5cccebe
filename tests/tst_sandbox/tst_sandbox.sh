#!/bin/sh
# Tests the private instrument and its sticks: prints one line per case, and is 0 when all passed.
#
#   tst_sandbox.sh [case...]
#
# Scripts in single quotes are for a shell inside, and the cases are called by their names.
# shellcheck disable=SC2016,SC2317
set -u
export LC_ALL=C.UTF-8
here=$(CDPATH='' cd -- "$(dirname -- "$0")" && pwd)
sandbox=${here%/tests/*}/sandbox
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    printf 'FAIL!  : %s: %s\n' "$case" "$*" >&3
    touch "$scratch/failed"
}

# same <what> <actual> <expected>
same() {
    [ "$2" = "$3" ] || fail "$1
   Actual   $2
   Expected $3"
}

# has <what> <actual> <part>
has() {
    case $2 in
    *"$3"*) ;;
    *) fail "$1
   Actual   $2
   Expected $3 in it" ;;
    esac
}

instrument() {
    "$sandbox/instrument" "$@"
}

# inside <script>: what it says and complains of on an instrument.
inside() {
    instrument sh -c "$1" 2>&1
}

# eventually <command...>: waits until it succeeds, for twenty seconds at most.
eventually() {
    tries=0
    until "$@" 2>/dev/null; do
        tries=$((tries + 1))
        [ "$tries" -lt 400 ] || return 1
        sleep 0.05
    done
}

# --- account and folders ---

the_account_is_there() {
    same account "$(inside 'getent passwd ostan')" \
        "ostan:x:4711:4711:Instrument:/home/ostan:/bin/sh"
    same root "$(inside 'getent passwd 0')" "$(getent passwd 0)"
}

the_account_can_be_left_out() {
    same account "$(instrument --without-account getent passwd ostan)" ""
    same root "$(instrument --without-account getent passwd 0)" "$(getent passwd 0)"
    same home "$(instrument --without-account find /home -name ostan)" ""
}

another_account_database_can_be_put_on_top() {
    same accounts "$(inside 'echo other:x:1:1::/: >/var/tmp/accounts
        mount --bind /var/tmp/accounts /etc/passwd && getent passwd ostan other')" "other:x:1:1::/:"
}

other_accounts_stay_whatever_their_names() {
    same accounts "$(inside 'printf "fr\344nk:x:1:1::/:\nostan:x:2:2::/:\nother:x:3:3::/:\n" >/var/tmp/accounts
        mount --bind /var/tmp/accounts /etc/passwd && instrument cat /etc/passwd | iconv -f latin1')" \
        "fränk:x:1:1::/:
other:x:3:3::/:
ostan:x:4711:4711:Instrument:/home/ostan:/bin/sh"
}

the_home_folder_is_new_and_the_accounts_own() {
    same "owner, group, rights" "$(inside 'stat -c "%u %g %a" /home/ostan')" "4711 4711 755"
    same contents "$(inside 'ls -A /home/ostan')" ""
    same "owner of what the account makes" "$(inside 'cd /home/ostan &&
        setpriv --reuid ostan --clear-groups touch mine && stat -c %U mine')" ostan
}

other_homes_stay() {
    same contents "$(inside 'mkdir /home/somebody && echo something >/home/somebody/file
        instrument cat /home/somebody/file')" something
}

media_and_the_temporary_folder_are_new() {
    same media "$(inside 'ls -A /media')" ""
    same "temporary folder" "$(inside 'ls -A $TMPDIR; stat -c "%n %a" $TMPDIR')" "/var/tmp 1777"
}

# Outside, where the machine may well be busy with other things.
our_mounts='grep -E " - tmpfs (instrument|/dev/sd)" /proc/'$$'/mountinfo'

the_machine_outside_stays_as_it_is() {
    mounts=$(sh -c "$our_mounts")
    accounts=$(cat /etc/passwd)
    same "mount table meanwhile" "$(inside "stick plug A && $our_mounts
        touch /home/trace.$$ /media/trace.$$ /var/tmp/trace.$$")" "$mounts"
    same "mount table afterwards" "$(sh -c "$our_mounts")" "$mounts"
    same accounts "$(cat /etc/passwd)" "$accounts"
    same files "$(find /home /media /var/tmp -maxdepth 1 -name "trace.$$")" ""
}

another_user_gets_there_too() {
    if [ "$(id -u)" -ne 0 ] || ! instrument unshare --user true 2>/dev/null; then
        echo "SKIP   : $case: only the machine's root can become that user"
        return
    fi
    # From a copy, because the project may lie where only its owner can go.
    cat >"$scratch/visit" <<'END'
place=$(mktemp -d /home/visit-XXXXXX)
cp -R "$0/." "$place"
chmod -R a+rX "$place"
export PATH="$place:$PATH"
cd /var/tmp
cp /etc/passwd accounts
echo person:x:4712:4712::/:/bin/sh >>accounts
echo person:100000:65536 >ids
chmod 644 accounts ids
mount --bind accounts /etc/passwd
mount --bind ids /etc/subuid
mount --bind ids /etc/subgid
cd /
setpriv --reuid 4712 --regid 4712 --clear-groups instrument sh -c '
    id -u
    getent passwd ostan
    stat -c %u:%g /home/ostan
    stick plug A 1M && grep ^/dev/sda /proc/mounts | cut -d " " -f 1-3
    umount "/media/Stick A" && ls /media'
END
    same "what that user sees" "$(instrument sh -c "$(cat "$scratch/visit")" "$sandbox" 2>&1)" "0
ostan:x:4711:4711:Instrument:/home/ostan:/bin/sh
4711:4711
/dev/sda1 /media/Stick\\040A tmpfs
Stick A"
}

# The options depend on the kernel and on who runs the test.
table='grep ^/dev/sd /proc/mounts | cut -d " " -f 1-3'

# A disk of the machine's own, in a folder of an instrument that plays the machine.
own_disk='mkdir "/home/own disk" && mount -t tmpfs /dev/sda1 "/home/own disk" &&
    echo before >"/home/own disk/file"'

the_machines_own_disk_is_no_stick() {
    if [ "$(id -u)" -ne 0 ] || [ "$(awk '{ print $3 }' /proc/self/uid_map)" != 4294967295 ]; then
        echo "SKIP   : $case: only the machine's root can hide a disk"
        return
    fi
    same "what an instrument sees of it" "$(inside "$own_disk
        instrument sh -c '$table; cat \"/home/own disk/file\"; stick plug A && $table'")" "before
/dev/sda1 /media/Stick\\040A tmpfs"
    has "what an instrument can do to it" "$(inside "$own_disk
        instrument cp /etc/passwd '/home/own disk/file'")" "Read-only file system"
    same "what is left of a container's own files" "$(inside "$own_disk
        mount --bind '/home/own disk/file' /etc/group && umount '/home/own disk'
        instrument sh -c '$table; cmp /etc/group -'; cat /etc/group" <"/etc/group")" before
    if instrument unshare --user true 2>/dev/null; then
        has "what somebody else is told" "$(inside "$own_disk
            unshare --map-root-user instrument true; echo \$?")" "use sudo
125"
    fi
}

# --- the command ---

the_result_is_the_commands() {
    inside 'exit 7'
    same "exit status" $? 7
    inside 'kill -TERM $$' >/dev/null
    same "status after a signal" $? 143
    instrument --no-such-option 2>/dev/null
    same "status without an instrument" $? 125
}

the_process_is_the_commands() {
    "$sandbox/instrument" sh -c 'echo $$; exec sleep 60' >"$scratch/id" &
    eventually test -s "$scratch/id"
    same "process id" "$(cat "$scratch/id")" $!
    kill $!
    wait $!
    same "status after a signal" $? 143
}

arguments_and_input_pass_unchanged() {
    same arguments "$(instrument printf '%s|' 'a b' '' "it's" '*' '--help' 'two
lines')" "a b||it's|*|--help|two
lines|"
    same input "$(echo hello | instrument cat)" hello
    same "working folder" "$(cd "$here" && instrument pwd)" "$here"
}

a_shell_stands_in_for_no_command() {
    same account "$(echo 'getent passwd ostan | cut -d : -f 3' | SHELL=/bin/sh instrument)" 4711
}

# --- sample data ---

# Everything that must be the same each time.
look_at_data='export LC_ALL=C.UTF-8; cd /home/ostan && find . | sort | while read -r file; do stat -c "%n %s %Y %u:%g %A" "$file"
    [ -d "$file" ] || cksum <"$file"
done'

sample_data_are_the_same_each_time() {
    instrument --sample-data sh -c "$look_at_data" >"$scratch/here"
    (umask 077 && TZ=America/Lima LC_ALL=C instrument --sample-data sh -c "$look_at_data") \
        >"$scratch/there"
    same "difference in another place" "$(diff "$scratch/here" "$scratch/there")" ""
    has data "$(cat "$scratch/here")" \
        "./logs/soil/flux_2013-05-07_plot1.csv 2429 1367925060 4711:4711 -rw-r--r--"
    same "owners" "$(instrument --sample-data find /home/ostan ! -user ostan)" ""
}

# data <condition...>: number of files in the sample data that meet it.
data() {
    instrument --sample-data find /home/ostan "$@" | wc -l
}

sample_data_have_what_an_instrument_has() {
    same folders "$(instrument --sample-data sh -c 'cd /home/ostan && ls -d */ logs/soil/')" \
        "autoprogs/
configs/
graph_definitions/
logs/
logs/soil/"
    [ "$(data -path '*/logs/*.csv')" -gt 70 ] || fail "few logs"
    [ "$(data -path '*/autoprogs/*.py')" -gt 4 ] || fail "few programs"
    [ "$(data -type d -empty)" -gt 1 ] || fail "no empty folders"
    [ "$(data -type f -empty)" -gt 0 ] || fail "no empty file"
    [ "$(data -size +10M)" -gt 0 ] || fail "no large file"
    [ "$(data -name '*ü*')" -gt 1 ] || fail "no umlauts"
    [ "$(data -name '*"*')" -gt 0 ] || fail "no quotes"
    [ "$(data -regextype posix-extended -regex '.*/[^/]{120,}')" -gt 0 ] || fail "no long names"
}

# --- sticks ---

sticks_are_lines_of_the_mount_table() {
    same "where they are told to be" "$(inside "
        stick plug A 64M '/media/My Stick' && stick plug B 1M /media/two && $table")" \
        "/dev/sda1 /media/My\\040Stick tmpfs
/dev/sdb1 /media/two tmpfs"
    same "where they are by themselves" "$(inside "stick plug B && stick plug A && $table")" \
        "/dev/sdb1 /media/Stick\\040B tmpfs
/dev/sda1 /media/Stick\\040A tmpfs"
}

a_stick_has_its_size_and_takes_everybodys_files() {
    same "size in KB" "$(inside 'stick plug A 3M && df -k /media/* | awk "NR == 2 { print \$2 }"')" 3072
    same owner "$(inside 'stick plug A && cd /media/* &&
        setpriv --reuid 4712 --clear-groups touch mine && stat -c %u mine')" 4712
}

a_second_stick_in_the_same_place_is_refused() {
    same "message and table" "$(inside "stick plug A && stick plug A 1M /media/other; $table; ls /media")" \
        "stick: stick A is plugged in already
/dev/sda1 /media/Stick\\040A tmpfs
Stick A"
}

a_bad_request_changes_nothing() {
    has size "$(inside 'stick plug A banana')" "mount: "
    same "left behind" "$(inside "stick plug A banana 2>/dev/null; $table; ls /media")" ""
    same place "$(inside 'stick plug A 1M media')" "stick: the folder must begin with a slash: media"
    same letter "$(inside 'stick plug C')" 'stick: there are stick A and stick B only, not "C"'
    same "no letter" "$(inside 'stick pull')" "stick: which stick, A or B?"
    same command "$(inside 'stick twist A')" 'stick: unknown command "twist"; try --help'
    for command in pull fill read-only busy; do
        same "$command" "$(inside "stick $command B; echo \$?")" "stick: stick B is not plugged in
1"
    done
}

a_full_stick_takes_nothing_more() {
    has write "$(inside 'stick plug A 1M && stick fill A && cp /etc/passwd "/media/Stick A"')" \
        "No space left on device"
    same "free bytes" "$(inside 'stick plug A 1M && stick fill A && stat -f -c %a /media/*')" 0
}

a_read_only_stick_takes_no_change() {
    has write "$(inside 'stick plug A && stick read-only A && touch "/media/Stick A/new"')" \
        "Read-only file system"
    same "size is kept" "$(inside 'stick plug A 3M && stick read-only A &&
        df -k /media/* | awk "NR == 2 { print \$2 }"')" 3072
}

a_busy_stick_stays_eventually_is_released() {
    has "unmounting it" "$(inside 'stick plug A && stick busy A && umount /media/*')" \
        "target is busy"
    same "nothing is on it" "$(inside 'stick plug A && stick busy A && ls -A /media/*')" ""
    same "unmounting it later" "$(inside "stick plug A && stick busy A && stick release A &&
        umount /media/* && $table")" ""
}

a_stick_can_be_pulled_at_any_time() {
    same "table and folders" "$(inside "stick plug A && stick busy A && stick pull A; $table; ls /media")" ""
    same "contents when it comes back" "$(inside 'stick plug A && touch "/media/Stick A/x" && stick pull A &&
        stick plug A && ls -A /media/*')" ""
}

sticks_are_listed() {
    same list "$(inside 'stick plug B 1M && stick fill B && stick busy B && stick read-only B && stick list')" \
        "A  not plugged in
B  /media/Stick B  (1.0M, 0 free, read-only, busy)"
}

# remotely <stick command...>: from outside.
remotely() {
    "$sandbox/stick" --instrument "$that" "$@"
}

another_terminal_reaches_a_running_instrument() {
    mkfifo "$scratch/end"
    instrument --reachable sh -c 'echo $$; read -r end; cut -d " " -f 1-3 /proc/mounts' \
        >"$scratch/said" <"$scratch/end" &
    exec 4>"$scratch/end"
    eventually test -s "$scratch/said"
    that=$(cat "$scratch/said")
    eventually remotely list >/dev/null

    same plug "$(remotely plug B 1M)" ""
    same list "$(remotely list)" "A  not plugged in
B  /media/Stick B  (1.0M, 1.0M free)"
    same again "$(remotely plug B 2>&1)" "stick: stick B is plugged in already"
    remotely busy B
    holder=$(within cat /var/tmp/.busy-stick-B)
    eventually grep -qx tail "/proc/$holder/comm" || fail "who keeps it busy"
    case $("$sandbox/stick" list 2>&1) in
    "A  not plugged in
"* | *"several instruments are running"*"$that"*) ;;
    *) fail "the instrument is not found" ;;
    esac

    echo >&4
    exec 4>&-
    wait $!
    has "the instrument's own table" "$(cat "$scratch/said")" "/dev/sdb1 /media/Stick\\040B tmpfs"
    eventually test ! -e "/proc/$holder" || fail "the busy stick outlives its instrument"
    same "after the end" "$(remotely list 2>&1)" "stick: no process $that"
    case $("$sandbox/stick" list 2>&1) in
    *"$that"*) fail "an instrument that is gone is found" ;;
    esac
}

within() {
    nsenter --target "$that" --mount --root --wd "$@" 2>/dev/null || nsenter --target "$that" --user --mount --root --wd "$@"
}

exec 3>&1
# The cases are the functions whose names are sentences, with underscores for blanks.
# shellcheck disable=SC2046
[ $# -gt 0 ] || set -- $(sed -n 's/^\([a-z]*_[a-z_]*\)() {$/\1/p' "$0")
result=0
for case; do
    rm -f "$scratch/failed"
    $case
    if [ -e "$scratch/failed" ]; then
        result=1
    else
        echo "PASS   : $case"
    fi
done
exit $result
