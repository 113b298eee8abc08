#!/bin/bash
# bench/other_viewers.sh ZELVIEW FILE...: seconds from start to picture of each file, by zelview (first and second open), by
# f3d, and the seconds of FreeCAD's reading alone and with meshing. The others are Debian's packages, put in by hand:
#     apt-get install f3d freecad xvfb
# f3d meshes by its own tolerance. FreeCAD without its window draws nothing, and it is asked for the bare shapes, without
# names and colours: its importer of whole documents needs the window.
set -u
zelview=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CACHE_HOME=$work/cache LIBGL_ALWAYS_SOFTWARE=1
cat > "$work/read.py" <<'END'
import os, sys, time
import Part
start = time.time()
shape = Part.Shape()
shape.read(os.environ["MODEL"])
read = time.time() - start
for solid in shape.Solids:
    solid.tessellate(solid.BoundBox.DiagonalLength * 0.002)
sys.stderr.write("FREECAD %.2f, %.2f\n" % (read, time.time() - start))
sys.stderr.flush()
os._exit(0)
END

# seconds COMMAND...: what it takes; or its exit code, after three minutes that of timeout
seconds() {
    local start end status
    start=$(date +%s.%N)
    timeout 180 "$@" > /dev/null 2>&1
    status=$?
    end=$(date +%s.%N)
    [ $status -eq 0 ] && echo "$end - $start" | bc | sed 's/^\./0./; s/\(\...\).*/\1/' || echo "exit $status"
}

echo "| file | zelview | again | f3d | FreeCAD: read, and mesh |"
echo "|---|---|---|---|---|"
for file; do
    rm -rf "$XDG_CACHE_HOME"
    first=$(seconds "$zelview" --output "$work/a.png" "$file")
    second=$(seconds "$zelview" --output "$work/a.png" "$file")
    f3d=$(seconds xvfb-run -a f3d --output="$work/b.png" "$file")
    freecad=$(MODEL=$file timeout 180 freecadcmd "$work/read.py" 2>&1 > /dev/null | sed -n 's/^FREECAD //p')
    echo "| ${file##*/} | $first | $second | $f3d | ${freecad:-failed} |"
done
