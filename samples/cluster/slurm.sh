#!/bin/sh
# OUT=FILE SHARDS=N [PARTS=FOLDER] slurm.sh MODEL.vlk STUDY...: a study in shards as a job array of Slurm, and a job
# behind it that merges; prints the number of that job. SBATCH_OPTIONS go to both.
set -eu
: "${OUT:?names the file for the rows}" "${SHARDS:?says how many shards}"
VERLINK=${VERLINK:-verlink-batch}
PARTS=${PARTS:-$OUT.parts}
mkdir -p "$PARTS"

# A script of sbatch is read before the job runs: the study goes in its arguments.
# shellcheck disable=SC2086
# (SBATCH_OPTIONS is meant to be split)
array=$(VERLINK=$VERLINK PARTS=$PARTS SHARDS=$SHARDS sbatch --parsable --requeue --array="1-$SHARDS" \
    --output="$PARTS/%a.log" --open-mode=append --export=ALL ${SBATCH_OPTIONS:-} /dev/stdin "$@" <<'TASK'
#!/bin/sh
# Slurm asks for an end before it takes a node away; the rows that are there are gone on with.
exec "$VERLINK" "$@" --threads "${SLURM_CPUS_PER_TASK:-1}" --resume \
    --shard "$SLURM_ARRAY_TASK_ID/$SHARDS" --csv "$PARTS/$SLURM_ARRAY_TASK_ID.csv"
TASK
)

# shellcheck disable=SC2086
exec env VERLINK="$VERLINK" PARTS="$PARTS" SHARDS="$SHARDS" OUT="$OUT" sbatch --parsable \
    --dependency="afterok:$array" --output="$PARTS/merge.log" --export=ALL ${SBATCH_OPTIONS:-} /dev/stdin <<'MERGE'
#!/bin/sh
exec "$VERLINK" --merge "$OUT" $(seq -f "$PARTS/%.0f.csv" "$SHARDS")
MERGE
