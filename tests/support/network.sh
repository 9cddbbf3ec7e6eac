#!/bin/sh
# Furnishes the test's own network. Called by the tests, each word inside the namespace that it is for.
set -e
PATH=$PATH:/usr/sbin # where Debian keeps servers; an ordinary user's path leaves it out
case $1 in
own) # Packets live for one hop.
  ip link set lo up
  echo 1 >/proc/sys/net/ipv4/ip_default_ttl
  ip addr add 10.66.1.1/24 dev own
  ip link set own up
  ip route add 10.66.0.0/16 via 10.66.1.2
  ip route add unreachable 10.66.9.0/24
  ;;
peer) # It forwards, so that it answers as a router does, but drops what is for the black hole.
  cd /proc/sys/net/ipv4
  echo 1 >icmp_echo_ignore_all
  echo 1 >ip_forward
  echo 0 >icmp_ratelimit
  echo 0 >conf/all/send_redirects
  ip link set lo up
  ip addr add 10.66.1.2/24 dev peer
  ip addr add 10.66.1.3/24 dev peer
  ip link set peer up
  ip route add blackhole 10.66.2.0/24
  ip route add unreachable 10.66.3.0/24
  ip route add 10.66.5.0/24 via 10.66.1.1
  ;;
xrdp) # A real Remote Desktop server, in a mount namespace with a /run of its own.
  exec unshare --mount "$0" xrdp_apart
  ;;
xrdp_apart)
  mount -t tmpfs none /run
  cd /run
  cat >xrdp.ini <<'INI'
[Globals]
ini_version=1
fork=false
port=3389
[Logging]
LogFile=/run/log
[Channels]
[Xvnc]
name=Xvnc
lib=libvnc.so
INI
  echo ready
  exec xrdp --nodaemon --config /run/xrdp.ini >/dev/null
  ;;
esac
