# Shared by the tests that trace a program: whether it closes the network, tries to use it, or writes files. It is sourced,
# not run.
# shellcheck shell=bash

# Replaces the shell by the command under strace, with the relevant calls in the file given first; for a subshell.
become_traced() {
    local changes=creat,truncate,mkdir,mkdirat,mknod,mknodat,rename,renameat,renameat2,link,linkat,symlink,symlinkat
    export ASAN_OPTIONS=detect_leaks=0 # leak detection does not work under ptrace
    exec strace --follow-forks --quiet=all --interruptible=waiting --output="$1" \
        --trace="socket,socketpair,io_uring_setup,seccomp,poll,ppoll,execve,open,openat,unlink,unlinkat,rmdir,$changes" "${@:2}"
}

# The same without a display or a session. The folder given first gets the trace `calls`, an empty `home`, and `saved`
# for files that the user saves.
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

# Prints the successful calls of a trace that change files, or could, outside of the folder given. /dev/null does not
# count.
changes_outside() {
    local calls=$1 saved=$2
    whole_calls "$calls" | grep -E '^[0-9]+ +(mk|rename|link|symlink|unlink|rmdir|truncate|creat)|O_(WRONLY|RDWR|CREAT|TRUNC)' |
        grep -vE ' = -1 E[A-Z]+ |"/dev/null"' | grep -vF -e "\"$saved/" -e "\"$saved\"" || true
}

# Prints the calls of a trace that open a socket that is not local, or try to. The kernel refuses these once the network
# is closed, but there is no reason to try.
other_sockets() {
    whole_calls "$1" | grep -E '^[0-9]+ +(socket|socketpair|io_uring_setup)\(' |
        grep -vE ' (socket|socketpair)\(AF_UNIX,' || true
}

# Whether the trace shows that the filter for all threads has been installed.
check_closed_network() {
    local installs='seccomp\(SECCOMP_SET_MODE_FILTER, [^{]*\bSECCOMP_FILTER_FLAG_TSYNC\b.*\{len=.* = 0$'
    if [ -z "$(whole_calls "$1" | grep -E "$installs")" ]; then
        echo 'it does not close the network'
        return 1
    fi
}

# Whether the trace shows only local sockets and no change outside of the folder for saved files, named as in the trace,
# and whether the home is empty.
check_trace() {
    local calls=$1 saved=$2 home=$3 failed=0 found
    found=$(other_sockets "$calls")
    if [ -n "$found" ]; then
        printf 'it tries to open sockets that are not local:\n%s\n' "$found"
        failed=1
    fi
    found=$(changes_outside "$calls" "$saved")
    if [ -n "$found" ]; then
        printf 'it changes other files:\n%s\n' "$found"
        failed=1
    fi
    found=$(find "$home" -mindepth 1)
    if [ -n "$found" ]; then
        printf 'it leaves something in the home of its user:\n%s\n' "$found"
        failed=1
    fi
    return $failed
}
