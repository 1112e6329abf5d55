#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes a machine that has nothing, a bare Debian 12 in a folder, and runs commands of the project in it, in a clone of
# the commit that is checked out here.
#   tools/fresh_machine.sh [--user] [--folder FOLDER] [COMMAND]
# COMMAND    what to run in the clone; ./run and then ./test if none is given. Its output and exit status are passed on
# --user     as an ordinary user who may use sudo; otherwise as root
# --folder   where the machine is made, or is already; it stays. Otherwise it is deleted at the end
# Exit status 125: no such machine can be made here; the reason is on standard error. Needs root and about 5 GB.
set -euo pipefail
cd "$(dirname "$0")/.."
give_up() { printf 'fresh_machine.sh: %s\n' "$*" >&2; exit 125; }
say() { printf 'fresh_machine.sh: %s\n' "$*"; }

account=root folder=
while [ $# -gt 0 ]; do
    case $1 in
        --user) account=someone ;;
        --folder) folder=$(mkdir -p "$2" && cd "$2" && pwd); shift ;;
        -*) sed -n '3,9s/^# //p' "$0" >&2; exit 2 ;;
        *) break ;;
    esac
    shift
done
command=${*:-./run && ./test}

# What makes the machine. Without a network there is another way than to wait for it.
[ "$(id -u)" -eq 0 ] || give_up "only root can make a machine."
install_here() {
    apt-get -o Acquire::Retries=1 -o Acquire::http::Timeout=20 -q update &&
        DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"
}
quietly() { local log; log=$("$@" 2>&1) || { printf '%s\n' "$log" >&2; return 1; }; }
if ! command -v git >/dev/null || ! command -v mmdebstrap >/dev/null; then
    quietly install_here git mmdebstrap || give_up "git and mmdebstrap cannot be installed."
fi
if [ -z "$folder" ]; then
    folder=$(mktemp -d -p "${TMPDIR:-/var/tmp}" fresh_machine.XXXXXX)
    trap 'rm -rf --one-file-system "$folder"' EXIT
fi

make_machine() {
    local mirror=() proxies=() file
    for file in /etc/apt/sources.list.d/debian.sources /etc/apt/sources.list; do
        if grep -qs bookworm "$file"; then mirror=("$file"); break; fi
    done
    mapfile -t proxies < <(apt-config dump | grep -E '^Acquire::https?::Proxy')
    mmdebstrap --quiet --variant=apt --include=ca-certificates,passwd,sudo "${proxies[@]/#/--aptopt=}" \
        bookworm "$folder" "${mirror[@]}"
}
# In mounts of its own, which are gone when the command is.
in_machine() { # ACCOUNT COMMAND
    unshare --mount --propagation private sh -c '
        mount -t proc proc "$1/proc" && mount --rbind /dev "$1/dev" && mount -t tmpfs tmpfs "$1/run" &&
        exec chroot "$1" su - "$2" -c "$3"' - "$folder" "$1" "$2" </dev/null
}
if [ ! -e "$folder/etc/debian_version" ]; then
    say "making a bare Debian 12 in $folder"
    quietly make_machine || give_up "a bare Debian 12 cannot be made."
fi
chmod 755 "$folder"
cp /etc/resolv.conf /etc/hosts "$folder/etc/"
in_machine root true || give_up "nothing can be run in $folder."

# The clone, whoever owns this folder: git only reads it.
export GIT_CONFIG_GLOBAL="$folder/tmp/gitconfig"
printf '[safe]\n\tdirectory = *\n' >"$GIT_CONFIG_GLOBAL"
commit=$(git rev-parse HEAD) || give_up "this folder is not a clone of git, so there is no commit to take."
rm -rf "$folder/home/project"
git clone --quiet "$PWD" "$folder/home/project"
[ "$commit" = "$(git -C "$folder/home/project" rev-parse HEAD)" ] || give_up "the clone is not at $commit."
[ -z "$(git status --porcelain)" ] || say "what is changed here and not committed is not in the clone"
rm "$GIT_CONFIG_GLOBAL"

if [ $account != root ]; then
    in_machine root "id $account >/dev/null 2>&1 || useradd -m $account
        echo '$account ALL=(ALL) NOPASSWD: ALL' >/etc/sudoers.d/$account; chown -R $account /home/project"
fi
say "$command, as $account, at $commit"
status=0
in_machine $account "cd /home/project && { $command; }" || status=$?
say "$command: exit status $status"
exit $status
