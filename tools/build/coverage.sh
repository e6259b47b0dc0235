# The lines that the tests of build/coverage reached. Read by ./dev.
# shellcheck shell=bash

forget_coverage() { find "$root/build/coverage" -name '*.gcda' -delete; }

# Branches that only an exception takes come from gcc, not from the source.
print_coverage() {
    say "coverage by folder"
    (cd "$root" && gcovr --object-directory build/coverage -j "$(nproc)" --csv \
        --exclude-throw-branches --exclude-unreachable-branches --exclude-directories '.*CompilerId.*' \
        --filter '(src|host|controller|link|pendant|tools)/') | awk -F, '
        function percent(part, whole) { return whole ? sprintf("%5.1f %%", 100 * part / whole) : "-" }
        function row(name) {
            printf "%-32s %7d %9s %9d %9s\n", name, lines[name], percent(hit[name], lines[name]),
                branches[name], percent(taken[name], branches[name])
        }
        function add(name) { lines[name] += $2; hit[name] += $3; branches[name] += $5; taken[name] += $6 }
        NR > 1 {
            folder = $1
            sub(/\/[^\/]*$/, "", folder)
            sub(/^host\/[^\/]*\/.*/, substr(folder, 1, index(substr(folder, 6), "/") + 4), folder)
            if (!(folder in lines)) folders[++count] = folder
            add(folder)
            add("all")
        }
        END {
            printf "%-32s %7s %9s %9s %9s\n", "folder", "lines", "reached", "branches", "taken"
            for (i = 1; i <= count; ++i) row(folders[i])
            row("all")
        }'
}
