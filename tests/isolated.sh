#!/usr/bin/env bash
# Runs one test with its own empty settings, state and home folders, removed afterwards.
set -u
tmp=$(mktemp -d "${TMPDIR:-/tmp}/se-test.XXXXXX")
trap 'rm -rf "$tmp"' EXIT
mkdir -p "$tmp/config" "$tmp/home" "$tmp/runtime"
chmod 0700 "$tmp/runtime"
export XDG_CONFIG_HOME="$tmp/config" HOME="$tmp/home" XDG_RUNTIME_DIR="$tmp/runtime"
export XDG_STATE_HOME="$tmp/state"
export TMPDIR="$tmp"
"$@"
