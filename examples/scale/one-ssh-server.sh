#!/usr/bin/env bash
# Runs a command while an ssh server of its own answers on this machine under two names, hosta and hostb, to try
# parallel.sh without other hosts. For the command, PARALLEL_SSH is an ssh that knows them.
#
#     one-ssh-server.sh DIR COMMAND...
#
# Needs root, and openssh-server. DIR is new and gets the keys and the log; the keys of the system are not touched.
set -euo pipefail
mkdir -p "$1" /run/sshd
dir=$(cd "$1" && pwd)
shift
port=16822

ssh-keygen -q -t ed25519 -N "" -f "$dir/host_key"
ssh-keygen -q -t ed25519 -N "" -f "$dir/user_key"
cat >"$dir/sshd_config" <<END
ListenAddress 127.0.0.1
Port $port
HostKey $dir/host_key
PidFile $dir/sshd.pid
AuthorizedKeysFile $dir/user_key.pub
PasswordAuthentication no
PermitRootLogin prohibit-password
StrictModes no
UsePAM no
LogLevel INFO
END
cat >"$dir/ssh_config" <<END
Host hosta hostb
    HostName 127.0.0.1
    Port $port
    IdentityFile $dir/user_key
    IdentitiesOnly yes
    BatchMode yes
    UserKnownHostsFile $dir/known_hosts
    HostKeyAlias one
END
echo "one $(cut -d' ' -f1,2 "$dir/host_key.pub")" >"$dir/known_hosts"

/usr/sbin/sshd -D -e -f "$dir/sshd_config" >"$dir/sshd.log" 2>&1 &
server=$!
trap 'kill $server' EXIT
export PARALLEL_SSH="ssh -F $dir/ssh_config"
for ((try = 0; try < 50; ++try)); do
    if $PARALLEL_SSH hosta true 2>/dev/null; then break; fi
    sleep 0.1
done
"$@"
