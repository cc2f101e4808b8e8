# What is shared by those who trace a program to see whether it stays on this computer and leaves nothing on it. It
# is sourced, not run.
# shellcheck shell=bash

# Becomes the command, of which the calls that matter go to the file given first: to be called in a subshell.
become_traced() {
    local changes=creat,truncate,mkdir,mkdirat,mknod,mknodat,rename,renameat,renameat2,link,linkat,symlink,symlinkat
    export ASAN_OPTIONS=detect_leaks=0 # which cannot work while another process traces this one
    exec strace --follow-forks --quiet=all --interruptible=waiting --output="$1" \
        --trace="socket,poll,ppoll,open,openat,unlink,unlinkat,rmdir,$changes" "${@:2}"
}

# The same in a world of its own, without a display or a session: in the folder given first, `calls` is the trace,
# `home` an empty home, and `saved` the place for what the user saves.
become_traced_alone() {
    local folder=$1
    mkdir "$folder/home" "$folder/saved"
    unset "${!XDG_@}" DBUS_SESSION_BUS_ADDRESS DISPLAY WAYLAND_DISPLAY
    export HOME=$folder/home TMPDIR=$folder/saved XDG_RUNTIME_DIR=$folder/saved QT_QPA_PLATFORM=offscreen
    become_traced "$folder/calls" "${@:2}"
}

# Prints a trace with each call on one line: strace breaks a call in two where another thread comes between.
whole_calls() {
    awk '/ <unfinished \.\.\.>$/ { sub(/ <unfinished \.\.\.>$/, ""); begun[$1] = $0; next }
        / <\.\.\. [a-z0-9_]+ resumed>/ && $1 in begun {
            rest = $0
            sub(/^.* resumed>/, "", rest)
            print begun[$1] rest
            delete begun[$1]
            next
        }
        { print }
        END { for (process in begun) print begun[process] }' "$1"
}

# Prints the calls of a trace by which files were changed, or could have been, outside of the folder given. What
# fails changes nothing, and /dev/null keeps nothing.
changes_outside() {
    local calls=$1 saved=$2
    whole_calls "$calls" | grep -E '^[0-9]+ +(mk|rename|link|symlink|unlink|rmdir|truncate|creat)|O_(WRONLY|RDWR|CREAT|TRUNC)' |
        grep -vE ' = -1 E[A-Z]+ |"/dev/null"' | grep -vF -e "\"$saved/" -e "\"$saved\"" || true
}

# Whether the trace shows no internet socket and no change outside of the folder for what is saved, of which the
# name is as in the trace, and whether the home has stayed empty.
check_trace() {
    local calls=$1 saved=$2 home=$3 failed=0 found
    found=$(grep 'AF_INET' "$calls" || true)
    if [ -n "$found" ]; then
        printf 'it opens an internet socket:\n%s\n' "$found"
        failed=1
    fi
    found=$(changes_outside "$calls" "$saved")
    if [ -n "$found" ]; then
        printf 'it changes files that nobody asked it to:\n%s\n' "$found"
        failed=1
    fi
    found=$(find "$home" -mindepth 1)
    if [ -n "$found" ]; then
        printf 'it leaves something in the home of its user:\n%s\n' "$found"
        failed=1
    fi
    return $failed
}
