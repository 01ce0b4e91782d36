#!/usr/bin/env bash
# The mail client of the Windows build, by Wine, against a real mail server on this machine that takes
# mails or misbehaves at one step.
#
#   tests/windows/smtp/smtp_test.sh [BUILD-FOLDER]      (TARVO_WINDOWS_BUILD goes before it)
set -u
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
source "$repository/scripts/wine-env.sh"
export TARVO_NETNS=${TARVO_NETNS:-1}
wine_own_network "$0" "$@"
build=${TARVO_WINDOWS_BUILD:-${1:-$repository/build/windows-64}}
program=$build/tests/windows/smtp/send-mail.exe
[[ -f $program ]] || { echo "There is no $program: build the preset windows-64 first." >&2; exit 1; }

cases=(
  "accept all|sent"
  "refuse greeting|greeting: 554 5.7.1 refused at greeting"
  "refuse ehlo|HELO: 554 5.7.1 refused at ehlo"
  "refuse mail|MAIL FROM: 554 5.7.1 refused at mail"
  "refuse rcpt|RCPT TO one@example.com: 554 5.7.1 refused at rcpt"
  "refuse data|DATA: 554 5.7.1 refused at data"
  "refuse message|message: 554 5.7.1 refused at message"
  "silent greeting|greeting: no answer in time"
  "silent ehlo|EHLO: no answer in time"
  "silent mail|MAIL FROM: no answer in time"
  "silent rcpt|RCPT TO one@example.com: no answer in time"
  "silent data|DATA: no answer in time"
  "silent message|message: no answer in time; the mail may have been taken all the same"
  "drip mail|MAIL FROM: no answer in time"
  "cut greeting|greeting: connection closed"
  "cut ehlo|EHLO: connection closed"
  "cut mail|MAIL FROM: connection closed"
  "cut rcpt|RCPT TO one@example.com: connection closed"
  "cut data|DATA: connection closed"
  "cut message|message: connection closed; the mail may have been taken all the same"
  "half message|sent"
  "leave message|sent"
  "linger body|message: 554 5.7.1 refused at body"
  "silent body|message: no answer in time"
)

wine_start
mkfifo "$WINE_DIR/hold"
exec 9<>"$WINE_DIR/hold"  # the servers' input: they end with it, at the latest
servers=()
ports=()
end_servers() {
  local process
  for process in "${servers[@]}"; do kill "$process" 2>/dev/null; done
  wine_stop
}
trap end_servers EXIT
for one in "${cases[@]}"; do
  read -r mode step <<<"${one%%|*}"
  "$repository/tests/xmldoc/mail/smtp_server.py" "$mode" "$step" \
    <"$WINE_DIR/hold" >"$WINE_DIR/server-$mode-$step" &
  servers+=($!)
done
for one in "${cases[@]}"; do
  read -r mode step <<<"${one%%|*}"
  for ((round = 0; round < 300; ++round)); do
    [[ -s $WINE_DIR/server-$mode-$step ]] && break
    sleep 0.1
  done
  ports+=("$(head -1 "$WINE_DIR/server-$mode-$step")")
done
wine_run "$program" 3000 "${ports[@]}" 1 | tr -d '\r' >"$WINE_DIR/outcomes"

failures=0
expect() {
  if [[ $2 == "$3" ]]; then
    echo "ok      $1"
  else
    echo "FAILED  $1: wanted \"$2\", got \"$3\""
    failures=1
  fi
}
mapfile -t outcomes <"$WINE_DIR/outcomes"
for i in "${!cases[@]}"; do
  expect "${cases[i]%%|*}" "${cases[i]#*|}" "${outcomes[i]:-}"
done
expect "nobody listens" "connecting: no connection" "${outcomes[${#cases[@]}]:-}"
for one in greeting ehlo mail rcpt data message; do
  expect "farewell after refuse $one" QUIT "$(sed -n 2p "$WINE_DIR/server-refuse-$one")"
done
expect "farewell after the mail" QUIT "$(sed -n 3p "$WINE_DIR/server-accept-all")"
mail=$(sed -n 2p "$WINE_DIR/server-accept-all")
expect "subject and recipient" '"recipients": ["one@example.com"], "sender": "launcher@example.com", "subject": "Jos\u00e9"' \
  "$(grep -o '"recipients.*"subject": "[^"]*"' <<<"$mail")"
expect "body" '"body": "first\r\n.dot\r\nxxx' "$(grep -o '"body": "first.r.n.dot.r.nxxx' <<<"$mail")"
expect "whole body" 8000000 "$(grep -o '"body": "[^"]*"' <<<"$mail" | tr -cd x | wc -c)"
exit $failures
