#!/bin/sh
# Installs the Debian packages named as arguments, as far as they are missing. Says what it does; does nothing,
# quickly, when all are there.
set -eu

missing=""
for package in "$@"; do
  status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Es fehlen Pakete, und ohne root oder sudo sind sie nicht zu installieren:$missing" >&2
    exit 1
  fi
  as_root=sudo
fi
echo "Installiere:$missing"
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -qq
# shellcheck disable=SC2086  # one word a package
$as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
