# shellcheck shell=bash
# A bare Debian 12 in a folder, to prove things in that must not depend on what this machine happens to
# have. Sourced after common.sh, never run. Needs root, for debootstrap and chroot.

# The mirror that this machine gets its own packages from.
debian_mirror() {
    # shellcheck disable=SC2016 # apt fills them in
    apt-get indextargets --format '$(REPO_URI) $(ORIGIN) $(COMPONENT)' 'Created-By: Packages' |
        awk '$2 == "Debian" && $3 == "main" { print $1; exit }'
}

# make_bare_root [MIRROR]: makes a minimal system that is removed when the script ends. bare_root is its
# folder; the words of in_bare_root before a command run it there, as root, with nothing in its environment.
bare_root=
in_bare_root=()
make_bare_root() {
    local mirror=${1:-$(debian_mirror)}
    [ "$(id -u)" -eq 0 ] || die "Needs root, for debootstrap and chroot."
    [ -n "$mirror" ] || die "No Debian mirror among this machine's sources: name one."
    ensure_packages debootstrap
    bare_root=$(mktemp -d)
    chmod 755 "$bare_root" # the root folder of a system is open to all its users
    trap remove_bare_root EXIT
    say "Making a bare Debian 12 in $bare_root"
    debootstrap --variant=minbase bookworm "$bare_root" "$mirror"
    mount -t proc proc "$bare_root/proc"
    cp /etc/resolv.conf "$bare_root/etc"
    # shellcheck disable=SC2034 # for the scripts that source this one
    in_bare_root=(env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root chroot "$bare_root")
}

remove_bare_root() {
    umount "$bare_root/proc" || true
    rm -rf --one-file-system "$bare_root"
}
