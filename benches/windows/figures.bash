# How the benches under Wine print what they have measured, to be sourced behind story.sh.

FIGURES_SHORT=0

# figure NAME VALUE UNIT LIMIT: held when the value is at most the limit. Without a value the bench fails.
figure() {
  [[ $2 =~ ^-?[0-9.]+$ ]] || fail "no value of: $1"
  local verdict
  verdict=$(awk -v value="$2" -v limit="$4" 'BEGIN { print value <= limit ? "held" : "short" }')
  [[ $verdict == held ]] || FIGURES_SHORT=1
  printf '%-48s %10s %-8s limit %-8s %s\n' "$1" "$2" "$3" "$4" "$verdict"
}
# The last line of a bench: fails when a figure was short.
figures_held() { ((FIGURES_SHORT == 0)); }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
