#!/usr/bin/env bash
# Builds what a release consists of.
set -euo pipefail
cd "$(dirname "$0")/.."
bash packaging/windows/zip.sh
