# Verbs for stories with hosts and servers that do not answer, to be sourced behind story.sh.

# Packets for these addresses come back to this machine, which drops them as not its own: a connect to them
# gets no answer. Nothing leaves the machine, with or without a network of its own; the route wants one.
SILENT_HOSTS=(10.99.0.5 10.99.0.6)

# silence_hosts: false where the story has no network of its own.
silence_hosts() {
  [[ -n ${TARVO_IN_NETNS:-} ]] || return 1
  PATH=$PATH:/usr/sbin:/sbin ip route add 10.99.0.0/24 dev lo src 127.0.0.1
}

# silence_name_servers: the machine's own are asked in vain from now on.
silence_name_servers() {
  local server
  for server in $(awk '$1 == "nameserver" && $2 ~ /^[0-9.]+$/ { print $2 }' /etc/resolv.conf); do
    if [[ $server == 127.* ]]; then
      perl -MIO::Socket::INET -e 'my $mute = IO::Socket::INET->new(LocalAddr => $ARGV[0], LocalPort => 53,
        Proto => "udp") or die; sleep 600' "$server" &
    else
      PATH=$PATH:/usr/sbin:/sbin ip route add "$server/32" dev lo src 127.0.0.1
    fi
  done
}

# conf_host FILE KEY HOST: replaces the address behind that key of a conf file.
conf_host() {
  sed -i -E "s/^$2:.*\r$/$2: $3\r/" "$ROOT/conf/$1"
  grep -q "^$2: $3" "$ROOT/conf/$1" || fail "no $2 in $1"
}

# expect_tip TEXT INDEX: the light's tool tip, its lines joined by |, is that within 5 seconds; the line that
# tells since when, which differs from run to run, is left out.
tip_whole() { operate tooltip Sem "$1" | tr -d '\r'; }
tip() { tip_whole "$1" | sed -E "2{/^[a-z]+ since [0-9]{4}-/d}" | paste -sd"|"; }
has_tip() { [[ $(tip "$2") == "$1" ]]; }
expect_tip() { await 5 has_tip "$1" "$2" || fail "the tool tip of light $2 is '$(tip "$2")', not '$1'"; }
