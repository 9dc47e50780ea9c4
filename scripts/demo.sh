#!/usr/bin/env bash
# Builds the tool and shows its main job on the samples. Installs missing packages (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${tool_packages[@]}"
step "configure" cmake --preset release
step "build" cmake --build --preset release

tool=build/release/bin/vantro-profile

# The first screen of a sample exchange, as text lines.
sample_screen() {
    awk '/^screen:/ { inside = 1; next } inside && /^\|/ { print substr($0, 2, length($0) - 2); next } inside { exit }' "$1"
}

# Prints the command line, then runs it.
show() {
    printf '\n$ %s\n' "$*"
    "$@"
}

exchange=samples/exchanges/pdn_company_list.exchange

echo
echo "1. The agent looks for companies by name. The command to send to the host:"
show $tool command CPDNTrans strKeyCompany=KES

echo
echo "2. The host answers with this screen ($exchange):"
echo
sample_screen $exchange | tee build/demo-screen.txt

echo
echo "3. The results read from the screen:"
show $tool verify CPDNTrans --table --screen build/demo-screen.txt

echo
echo "4. A whole profile display, split into its elements:"
show $tool parse --table samples/profiles/traveller.txt

conversation=samples/exchanges/conversation.exchange
echo
echo "5. A whole conversation ($conversation), and whether the library reads it as expected:"
echo
grep -E '^(#|command:)' $conversation
show $tool replay $conversation
