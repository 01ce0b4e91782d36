# A bash library, to be sourced behind launcher-in-root.sh: a launcher with real servers and random faults for a
# number of minutes, measured from outside.
#
#   run_soak ROOT MINUTES FOLDER    prints the report; the exit code is 1 when a death or the window was not answered
#
# In FOLDER: report.txt, and to be plotted (scripts/soak_plots.py) faults.csv, deaths.csv (see
# benches/windows/soak/soak_watch.cpp) and minutes.csv. TARVO_SEED: another order of faults.

SOAK_FAULTS=(crash die fault close-port hang busy killed restarted randomized)
SOAK_CLEARING=30  # Seconds after the last fault in which all has to be answered.

soak_control() { wine_run "$WINDOWS_BUILD/servers/server-control.exe" "$2-server.exe" "$1"; }
soak_measure() { wine_run "$WINDOWS_BUILD/benches/measure.exe" "$1" tarvo-launcher.exe | tr -d '\r'; }

# soak_strike FAULT SERVER: false when the server or the launcher could not take it just then.
soak_strike() {
  local index
  case $2 in login) index=0 ;; char) index=1 ;; map) index=2 ;; esac
  case $1 in
    killed) wine_run taskkill /F /IM "$2-server.exe" ;;
    restarted) operate click bStart "$index" && operate click bStart "$index" ;;
    randomized) operate click Command2 ;;
    *) soak_control "$1" "$2" ;;
  esac >/dev/null 2>&1
}

# soak_sample BEGUN: one line of minutes.csv.
soak_sample() {
  local memory ticks
  memory=$(awk '/^Private/ { sum += $2 } END { print sum }' "/proc/$LAUNCHER_PROCESS/smaps_rollup") || return 1
  ticks=$(awk '{ print $14 + $15 }' "/proc/$LAUNCHER_PROCESS/stat")
  printf '%s,%s,%s,%s,%s\n' "$((SECONDS - $1))" "$memory" "$(soak_measure handles)" \
    "$(soak_measure objects | tr ' ' ',')" \
    "$(awk -v t="$ticks" -v hz="$(getconf CLK_TCK)" 'BEGIN { printf "%.2f", t / hz }')"
}

# Strikes every 3 to 12 seconds, and samples each minute, until the second END of the script.
soak_faults() {
  local folder=$1 begun=$2 end=$3 fault server sampled=$2
  while ((SECONDS < end)); do
    fault=${SOAK_FAULTS[RANDOM % ${#SOAK_FAULTS[@]}]}
    server=$(shuf -n 1 -e login char map --random-source=<(while :; do echo "$RANDOM"; done))
    if soak_strike "$fault" "$server"; then
      printf '%s,%s,%s\n' "$((SECONDS - begun))" "$fault" "$server" >>"$folder/faults.csv"
    fi
    if ((SECONDS - sampled >= 60)); then
      sampled=$SECONDS
      soak_sample "$begun" >>"$folder/minutes.csv" || return 1
    fi
    sleep "$((3 + RANDOM % 10))"
  done
}

soak_report() {
  local folder=$1 minutes=$2
  echo "Soak of $minutes minutes, seed $TARVO_SEED"
  echo "faults:"
  tail -n +2 "$folder/faults.csv" | cut -d, -f2 | sort | uniq -c | awk '{ printf "  %-12s %5d\n", $2, $1 }'
  awk -F, '$1 == "death" { ++deaths } $1 == "successor" { times[++n] = $4 }
    END {
      printf "deaths %d, answered %d\n", deaths, n
      if (n == 0) exit
      for (i = 2; i <= n; ++i) for (j = i; j > 1 && times[j - 1] + 0 > times[j] + 0; --j) {
        t = times[j]; times[j] = times[j - 1]; times[j - 1] = t
      }
      printf "death to successor: min %d, median %d, 95 of 100 %d, max %d ms\n", times[1],
        times[int((n + 1) / 2)], times[int(n * 0.95 + 0.999)], times[n]
    }' "$folder/deaths.csv"
  awk -F, 'NR == 2 { split($0, first) } { split($0, last) }
    END {
      printf "private memory %d to %d KiB, handles %d to %d, GDI objects %d to %d, windows %d to %d\n",
        first[2], last[2], first[3], last[3], first[4], last[4], first[5], last[5]
      printf "processor time %.2f s in %d s\n", last[6] - first[6], last[1] - first[1]
    }' "$folder/minutes.csv"
  awk -F, '$1 == "answer" && $3 > longest { longest = $3 }
    END { printf "longest answer of the window %d ms\n", longest }' "$folder/deaths.csv"
}

# Whether every death has a successor, the launcher still runs and its window always answered.
soak_answered() {
  awk -F, '$1 == "death" { ++open } $1 == "successor" { --open } $1 == "unanswered" { wrong = 1 }
    $1 == "answer" { asked = 1; if ($3 >= 10000) wrong = 1 }
    END { exit wrong || open != 0 || !asked }' "$1/deaths.csv" && kill -0 "$LAUNCHER_PROCESS" 2>/dev/null
}

run_soak() {
  local root=$1 minutes=$2 folder=$3 begun watcher status=0
  export TARVO_SEED=${TARVO_SEED:-1}
  RANDOM=$TARVO_SEED
  mkdir -p "$folder"
  echo "second,fault,server" >"$folder/faults.csv"
  echo "second,private_kib,handles,gdi_objects,windows,processor_seconds" >"$folder/minutes.csv"
  settings_write "$root" LoginTimeout=5 CharTimeout=5 MapTimeout=5 AutoRandomize=1
  printf '<?xml version="1.0"?>\r\n<Randomize>\r\n\t<base_exp_rate Min="100" Max="900"/>\r\n</Randomize>\r\n' \
    >"$root/randomize.xml"
  launcher_start "$root"
  operate wait-window 60 && operate wait-text RTLog "Listening Map Server" 60 || return 1
  begun=$SECONDS
  soak_sample "$begun" >>"$folder/minutes.csv"
  TARVO_WINE_LIMIT=$((minutes * 60 + 4 * SOAK_CLEARING)) wine_run "$WINDOWS_BUILD/benches/soak-watch.exe" \
    "$((minutes * 60 + SOAK_CLEARING))" >"$folder/deaths.csv" &
  watcher=$!
  soak_faults "$folder" "$begun" "$((begun + minutes * 60))" || status=1
  wait "$watcher" || status=1
  tr -d '\r' <"$folder/deaths.csv" >"$folder/deaths" && mv "$folder/deaths" "$folder/deaths.csv"
  soak_sample "$begun" >>"$folder/minutes.csv" || status=1
  soak_report "$folder" "$minutes" | tee "$folder/report.txt"
  soak_answered "$folder" || { echo "Something was not answered: see $folder" >&2; status=1; }
  operate click bStart 4 && operate close && operate wait-gone 30 && launcher_wait || status=1
  return "$status"
}
