#!/bin/bash
# bench/all_models.sh ZELVIEW MODELS OUT: every model file through the built program, each command timed as a whole.
# Writes OUT/table.md (file, exit codes of picture, tree and info, seconds of the picture, own work, first words on
# standard error) and the pictures beside it.
set -u
zelview=$1 models=$2 out=$3
mkdir -p "$out"
table=$out/table.md
{
    echo "| file | picture | tree | info | seconds | own work | said |"
    echo "|---|---|---|---|---|---|---|"
} > "$table"

# Files that only belong to another one: buffers, materials, textures, papers.
find "$models" -type f ! -name '*.bin' ! -name '*.mtl' ! -name '*.png' ! -name '*.jpg' ! -name '*.md' ! -name '*.txt' |
    sort | while read -r file; do
    name=${file#"$models"/}
    base=$out/${name//\//_}
    start=$(date +%s.%N)
    "$zelview" --time-limit 120 --resolution 640,480 --output "$base.png" "$file" 2> "$base.err"
    picture=$?
    seconds=$(echo "$(date +%s.%N) - $start" | bc)
    "$zelview" --time-limit 120 --tree "$file" > "$base.tree" 2> /dev/null
    tree=$?
    "$zelview" --time-limit 120 --info --output "$base.info.png" "$file" > "$base.info" 2> /dev/null
    info=$?
    rm -f "$base.info.png"
    own=$(sed -n 's/^own work *: *//p' "$base.info")
    printf '| %s | %d | %d | %d | %.2f | %s | %s |\n' "$name" $picture $tree $info "$seconds" "${own:--}" \
        "$(head -1 "$base.err" | cut -c1-100 | tr '|' '/')" >> "$table"
done
cat "$table"
