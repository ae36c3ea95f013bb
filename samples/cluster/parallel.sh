#!/bin/sh
# OUT=FILE SHARDS=N [PARTS=FOLDER] [HOSTS=LIST] parallel.sh MODEL.vlk STUDY...: a study in shards by GNU parallel.
set -eu
: "${OUT:?names the file for the rows}" "${SHARDS:?says how many shards}"
VERLINK=${VERLINK:-verlink-batch}
PARTS=${PARTS:-$OUT.parts}
mkdir -p "$PARTS"

hosts=""
[ -z "${HOSTS:-}" ] || hosts="--sshlogin $HOSTS --workdir $PWD"

# --resume leaves what is whole; --retries runs a shard again whose process or host died.
# shellcheck disable=SC2086
# (no word at all on this machine alone)
seq "$SHARDS" | parallel --quote --halt soon,fail=1 --retries 3 $hosts \
    "$VERLINK" "$@" --threads 1 --resume --shard "{}/$SHARDS" --csv "$PARTS/{}.csv"

# shellcheck disable=SC2046
# (the names have no blanks of their own)
exec "$VERLINK" --merge "$OUT" $(seq -f "$PARTS/%.0f.csv" "$SHARDS")
