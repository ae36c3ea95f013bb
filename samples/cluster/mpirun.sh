#!/bin/sh
# OUT=FILE SHARDS=N [RANKS=N] [PARTS=FOLDER] mpirun.sh MODEL.vlk STUDY...: a study in shards by Open MPI's mpirun.
# Each rank takes every so many-th shard.
set -eu
VERLINK=${VERLINK:-verlink-batch}

if [ -n "${OMPI_COMM_WORLD_RANK:-}" ]; then
    shard=$((OMPI_COMM_WORLD_RANK + 1))
    while [ "$shard" -le "$SHARDS" ]; do
        "$VERLINK" "$@" --threads 1 --resume --shard "$shard/$SHARDS" --csv "$PARTS/$shard.csv"
        shard=$((shard + OMPI_COMM_WORLD_SIZE))
    done
    exit
fi

: "${OUT:?names the file for the rows}" "${SHARDS:?says how many shards}"
PARTS=${PARTS:-$OUT.parts}
mkdir -p "$PARTS"
export VERLINK PARTS SHARDS
# shellcheck disable=SC2086
# (MPIRUN_OPTIONS is meant to be split)
mpirun ${RANKS:+-n "$RANKS"} ${MPIRUN_OPTIONS:-} "$0" "$@"

# shellcheck disable=SC2046
# (the names have no blanks of their own)
exec "$VERLINK" --merge "$OUT" $(seq -f "$PARTS/%.0f.csv" "$SHARDS")
