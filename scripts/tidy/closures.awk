# Reads lines as sha256sum and `grep -H '#include'` print them, and writes for each path in the file `files` one file
# into the folder `folder`: the path and hash of it and of each source that it includes, directly or not, and the
# command that compiles it, from the compilation database `commands`, which has absolute paths below `root`.
/:#include "/ {
    split($0, parts, ":#include \"")
    sub(/".*/, "", parts[2])
    direct[parts[1]] = direct[parts[1]] parts[2] "\n"
    next
}
{ hash[$2] = $1 }

# The source that `name` means where `from` includes it.
function resolved(name, from,    path) {
    path = from
    sub(/[^\/]*$/, name, path)
    if (path in hash)
        return path
    if ("src/" name in hash)
        return "src/" name
    return "tests/" name in hash ? "tests/" name : ""
}

END {
    while ((getline line < commands) > 0) {
        if (line ~ /^ *"command": /)
            command = line
        else if (line ~ /^ *"file": /) {
            gsub(/^ *"file": "|",?$/, "", line)
            commandOf[substr(line, length(root) + 1)] = command
        }
    }
    while ((getline target < files) > 0) {
        split("", visited)
        count = 1
        queue[1] = target
        visited[target]
        for (i = 1; i <= count; i++) {
            print queue[i], hash[queue[i]] > (folder "/" number + 0)
            n = split(direct[queue[i]], names, "\n")
            for (k = 1; k < n; k++) {
                path = resolved(names[k], queue[i])
                if (path != "" && !(path in visited)) {
                    visited[path]
                    queue[++count] = path
                }
            }
        }
        print commandOf[target] > (folder "/" number + 0)
        close(folder "/" number + 0)
        number++
    }
}
