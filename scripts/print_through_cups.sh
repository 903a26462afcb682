#!/usr/bin/env bash
# Prints through a real spooler and leaves the pages as PDF files: scripts/print_through_cups.sh [FOLDER]
# Runs a CUPS daemon of its own on a loopback address, with its settings and spool in a scratch folder, so that a
# printer of this machine is neither asked nor needed. Needs root, for the back end that writes the files.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/setup.sh

pages=${1:-build/printed}
port=${ZARQUELIN_CUPS_PORT:-6310}
install_missing "${build_packages[@]}" "${run_packages[@]}" cups-daemon cups-client cups-filters printer-driver-cups-pdf
build dev print_samples
((EUID == 0)) || {
    say "Please run as root."
    exit 1
}

rm -rf "$pages"
mkdir -p "$pages"
pages=$(realpath "$pages")
scratch=$(mktemp -d)
settings=/etc/cups/cups-pdf-zarquelin.conf
daemon=
trap '[[ -z $daemon ]] || { kill "$daemon"; wait "$daemon" || true; }; rm -rf "$scratch" "$settings"' EXIT
chmod 755 "$scratch"
mkdir -p "$scratch"/{etc/ppd,spool/tmp,cache,state,home,config}

# The back end reads its settings from the machine's folder, whatever the daemon's is; this file is ours alone.
cat >"$settings" <<EOF
Out $pages
AnonDirName $pages
Spool $scratch/spool/cups-pdf
Log $scratch
Label 1
TitlePref 1
DecodeHexStrings 1
EOF
cat >"$scratch/etc/cups-files.conf" <<EOF
ServerRoot $scratch/etc
RequestRoot $scratch/spool
TempDir $scratch/spool/tmp
CacheDir $scratch/cache
StateDir $scratch/state
ErrorLog $scratch/error.log
AccessLog $scratch/access.log
PageLog $scratch/page.log
SystemGroup root
EOF
cat >"$scratch/etc/cupsd.conf" <<EOF
Listen 127.0.0.1:$port
Browsing Off
DefaultAuthType None
MaxLogSize 0
<Location />
  Order allow,deny
  Allow from 127.0.0.1
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow from 127.0.0.1
  </Limit>
</Policy>
EOF
/usr/sbin/cupsd -f -c "$scratch/etc/cupsd.conf" -s "$scratch/etc/cups-files.conf" &
daemon=$!
export CUPS_SERVER=127.0.0.1:$port
for _ in $(seq 100); do
    lpstat -r 2>/dev/null | grep -q "is running" && break
    sleep 0.1
done
lpadmin -p Zarquelin-PDF -E -v cups-pdf:/zarquelin -P /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd

HOME=$scratch/home XDG_CONFIG_HOME=$scratch/config QT_QPA_PLATFORM=offscreen build/dev/bin/print_samples Zarquelin-PDF

# Two copies of the list and one window, in two languages.
for _ in $(seq 600); do
    [[ -z $(lpstat -o) ]] && break
    sleep 0.1
done
found=$(find "$pages" -name '*.pdf' | wc -l)
say "$found documents in $pages"
((found == 6)) || {
    tail -20 "$scratch/error.log" >&2
    exit 1
}
