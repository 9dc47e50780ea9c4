# shellcheck shell=bash
# Sourced after lib.sh: a private Debian root with Wine for 32-bit Windows programs, because a 64-bit machine's own Wine
# need not run those. It runs 64-bit ones too.

# shellcheck disable=SC2154 # lib.sh sets it
private_root=$root/build/com/root-x86

# Why 32-bit Windows programs cannot run here; nothing when they can.
obstacle() {
    if ((EUID != 0)); then
        echo "the private root needs the rights of root"
    elif [[ $(uname -m) != x86_64 ]]; then
        echo "no 64-bit Intel machine"
    elif ! unshare -m true 2>/dev/null; then
        echo "no mount namespaces"
    fi
}

# The mirrors' index of security updates for other architectures is at times out of step: it is not needed here.
sources() {
    if [[ -f /etc/apt/sources.list.d/debian.sources ]]; then
        awk 'BEGIN { RS = ""; ORS = "\n\n" } !/-security/' /etc/apt/sources.list.d/debian.sources
    else
        grep -v -e -security /etc/apt/sources.list
    fi
}
export -f sources

make_private_root() {
    local release
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    rm -rf --one-file-system "$private_root.new"
    sources | mmdebstrap --variant=apt --architectures=amd64,i386 --include=wine,wine64,wine32 \
        --aptopt='APT::Install-Recommends "false"' --dpkgopt='path-exclude=/usr/share/doc/*' \
        --dpkgopt='path-exclude=/usr/share/man/*' --dpkgopt='path-exclude=/usr/share/locale/*' \
        "$release" "$private_root.new" -
    mv "$private_root.new" "$private_root"
}
export -f make_private_root

# run_privately COMMAND...: in the private root, with this project's folder at its own place.
run_privately() {
    # shellcheck disable=SC2016 # the inner shell expands them
    unshare -m bash -euo pipefail -c '
        private_root=$1 project=$2
        shift 2
        mount --rbind /dev "$private_root/dev"
        mount -t proc proc "$private_root/proc"
        mount -t tmpfs tmpfs "$private_root/tmp"
        mkdir -p "$private_root$project" # after the mount above: the project itself may lie in /tmp
        mount --bind "$project" "$private_root$project"
        exec chroot "$private_root" env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 "$@"
    ' privately "$private_root" "$root" "$@"
}

# Downloads what 32-bit programs run in, where they can run at all.
install_private_root() {
    if [[ -d $private_root || -n $(obstacle) ]]; then return; fi
    mkdir -p "$(dirname "$private_root")"
    export private_root
    step "private root for 32-bit programs" bash -euo pipefail -c make_private_root
}
