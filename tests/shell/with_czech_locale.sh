#!/usr/bin/env bash
# Runs a test program on a Czech desktop, generating the Czech locale first where it is missing.
set -euo pipefail
if ! locale -a 2> /dev/null | grep -qix 'cs_CZ.utf8'; then
  localedef -i cs_CZ -f UTF-8 cs_CZ.UTF-8
fi
exec env LANG=cs_CZ.UTF-8 LANGUAGE=cs LC_ALL=cs_CZ.UTF-8 QT_QPA_PLATFORM=offscreen "$@"
