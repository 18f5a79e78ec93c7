# What scripts/test-package checks in its root. Sourced by it: inside, as_user, make_layer, fail, $root, $log, $version.

# Runs a command, shows what it wrote when it failed, and leaves a picture of the display.
check() {
  local what=$1
  shift
  "$@" >"$log" 2>&1 || {
    tail -30 "$log" >&2
    import -window root build/test-package/failure.png || true
    fail "failed: $what; the display then: build/test-package/failure.png"
  }
  echo "ok: $what"
}
# as_user, and the standard output is exactly this.
prints() {
  local out
  out=$(as_user "$1") || { echo "it ended with $?" >&2; return 1; }
  [ "$out" = "$2" ] || { printf 'it wrote\n%s\ninstead of\n%s\n' "$out" "$2" >&2; return 1; }
}
# as_user, and the standard output or error has this in it.
mentions() { { as_user "$1" 2>&1 || true; } | tee "$log.mentions" | grep -qF -- "$2" || { cat "$log.mentions" >&2; return 1; }; }
begins_with() { [ "$(head -c ${#2} "$root/home/user/$1")" = "$2" ]; }
now() { date +%s%N; }

# What the desktop entry runs for its action $1.
action() { sed -n "/^\[Desktop Action $1\]/,/^Exec=/s/^Exec=//p" "$root/usr/share/applications/chartproject.desktop"; }
# locked_up FOLDER VARIABLE=VALUE...: the service's recording, as the unit lets it run: a user who owns nothing, one folder
# to write to, no network, no homes. Takes the place of the shell.
locked_up() {
  exec unshare --mount --net --propagation private bash -s -- "$root" "$@" <<'END'
set -e
root=$1 state=$2
shift 2
mkdir -p "$root$state"
chown 64000:64000 "$root$state"
mount --rbind "$root" "$root"
mount --bind "$root$state" "$root$state"
mount -o remount,bind,ro "$root"
mount -t tmpfs -o mode=0 none "$root/home"
exec chroot --userspec=64000:64000 "$root" env -i PATH=/usr/bin:/bin HOME=/ STATE_DIRECTORY="$state" "$@" \
  /usr/libexec/chartproject/record press </dev/null
END
}
points() { grep -c '#' "$root/$1"/press-*.cht; }
# Begins a recording of the service, stops it as systemctl does after its first points.
stopped() {
  local state=/var/lib/chartproject/stopped code=0 until=$((SECONDS + 60)) recording
  (locked_up $state "RECORDING=--address 1 --parameters 2,3 --every 200ms --points 86400") &
  recording=$!
  until [ -n "$(find "$root$state" -name '*.tcf0' -size +0)" ]; do
    [ $SECONDS -lt $until ] && kill -0 $recording || { echo "no point in a minute"; return 1; }
  done
  kill -TERM $recording
  wait $recording || code=$?
  [ $code = 3 ] && [ "$(points $state)" -ge 1 ] || { echo "exit code $code, $(points $state) points"; return 1; }
}

# Waits for a visible window of a title, takes its picture, and closes it.
# Sets $milliseconds from $1 to the window.
see_window() {
  local begin=$1 title=$2 picture=$3 window= until=$((SECONDS + 60))
  until window=$(xdotool search --onlyvisible --name "$title" 2>/dev/null | head -1) && [ -n "$window" ]; do
    [ $SECONDS -lt $until ] || { echo "no window \"$title\"" >&2; return 1; }
  done
  milliseconds=$((($(now) - begin) / 1000000))
  # Shown is not yet painted: the picture counts when two in a row are the same and more than one colour.
  local before= picture_now=
  until [ -n "$before" ] && [ "$before" = "$picture_now" ]; do
    [ $SECONDS -lt $until ] || { echo "the window is never painted" >&2; return 1; }
    before=$picture_now
    import -window "$window" "$picture"
    [ "$(identify -format %k "$picture")" -gt 8 ] && picture_now=$(identify -format '%#' "$picture")
  done
  kill -TERM "$(xdotool getwindowpid "$window")" # closes its windows, as their user would
  while xdotool getwindowname "$window" >/dev/null 2>&1; do
    [ $SECONDS -lt $until ] || { echo "the window stays" >&2; return 1; }
  done
}
opens() {
  local command=$1 begin
  shift
  begin=$(now)
  as_user "$command" &
  see_window "$begin" "$@" && wait $!
}

echo "== chartproject-headless, on a machine without a display"
make_layer headless
check "installs" inside apt-get -q -y install "/packages/chartproject-headless_${version}_amd64.deb"
check "brings no Qt and no X" bash -c "! ls '$root'/usr/lib/x86_64-linux-gnu | grep -qE 'libQt|libX11'"
check "makes a project" mentions "chartproject init drives" "files made."
check "records" prints "chartproject --clock virtual acquire --address 1 --parameters 2,3 --points 3000 --every 1s --file run.cht" \
  "3000 points in /home/user/run.cht"
check "exports" as_user "chartproject --answer yes export run.cht --output run.xlsx"
check "says what it cannot do" mentions "chartproject view run.cht" "built without windows"
check "gives way to the other package" inside apt-get -q -y --no-install-recommends install "/packages/chartproject_${version}_amd64.deb"
check "draws without what is only recommended" as_user "DISPLAY= chartproject render run.cht --output run.png"
check "and is gone" bash -c "! chroot '$root' dpkg-query -s chartproject-headless 2>/dev/null | grep -q 'ok installed'"

echo "== chartproject, nothing else installed"
make_layer windows
inside sh -c "dpkg-query -W -f '\${Package}\n' | sort" >"$log.before"
begin=$(now)
check "installs" inside apt-get -q -y install "/packages/chartproject_${version}_amd64.deb"
sizes() { inside dpkg-query -W -f "\${Installed-Size}\n" "$@" | awk '{ n += $1 } END { printf "%d packages, %d KiB", NR, n }'; }
echo "   $(stat -c %s "$root/packages/chartproject_${version}_amd64.deb") bytes, installed $(sizes chartproject);" \
  "with all that it needs and recommends: $(inside sh -c "dpkg-query -W -f '\${Package}\n' | sort" >"$log.after"
    comm -13 "$log.before" "$log.after" >"$log.new"; sizes $(cat "$log.new")); in $((($(now) - begin) / 1000000)) ms"
check "says its version" mentions "chartproject --version" "ChartProject $version"
check "first start" opens chartproject "^ChartProject$" build/test-package/first_start.png
echo "   start window after $milliseconds ms"
check "which made a project" test -d "$root/home/user/ChartProject/projects"
begin=$(now)
check "records" prints "chartproject --clock virtual acquire --address 1 --parameters 2,3 --points 3000 --every 1s --file pump.cht" \
  "3000 points in /home/user/pump.cht"
check "renders without a display" as_user "DISPLAY= chartproject render pump.cht --points-per-division 19 --output pump.png"
echo "   first recording and picture after $((($(now) - begin) / 1000000)) ms"
check "a PNG file" begins_with pump.png $'\x89PNG'
check "prints to PDF" as_user "DISPLAY= chartproject print pump.cht --output pump.pdf"
check "a PDF file" begins_with pump.pdf %PDF-
check "exports" as_user "chartproject --answer yes export pump.cht --output pump.xlsx"
check "a workbook" begins_with pump.xlsx PK
check "opens a chart by its name" opens "chartproject pump.cht" "pump" build/test-package/view.png
echo "   chart window after $milliseconds ms"

echo "== on a desktop"
check "its tools" inside apt-get -q -y --no-install-recommends install libglib2.0-bin man-db systemd zsh
as_user "cp pump.cht unnamed; printf '[INFO]\nname=x\n' >other"
kind() { prints "gio info -a standard::content-type $1 | sed -n 's/.*content-type: //p'" "$2"; }
check "knows a chart by its name" kind pump.cht application/x-chartproject-trend
check "knows a chart by its content" kind unnamed application/x-chartproject-trend
check "takes no other file for one" kind other text/plain
check "gio open shows the chart" opens "gio open pump.cht" "pump" build/test-package/double_click.png
check "the menu entry" opens "gio launch /usr/share/applications/chartproject.desktop" "^ChartProject$" \
  build/test-package/menu_entry.png
check "the action Record" opens "$(action record)" "." build/test-package/record.png
check "the action Open chart" opens "$(action open)" "." build/test-package/open_chart.png
check "manual" mentions "MANWIDTH=100 man chartproject" "EXIT CODES"
check "manual without warnings" prints "man --warnings -E UTF-8 -Tutf8 -Z chartproject 2>&1 >/dev/null" ""
bash_completes() {
  prints ". /usr/share/bash-completion/bash_completion; _completion_loader chartproject; COMP_WORDS=($1); \
COMP_CWORD=\$((\${#COMP_WORDS[@]} - 1)); COMP_LINE='$1'; COMP_POINT=\${#COMP_LINE}; _chartproject 2>/dev/null; \
echo \"\${COMPREPLY[*]}\"" "$2"
}
check "bash completes a command" bash_completes "chartproject acq" acquire
check "bash completes a chart file" bash_completes "chartproject info pu" pump.cht
check "bash completes an option" bash_completes "chartproject acquire --para" --parameters
check "bash completes an address" bash_completes "chartproject read 1" 1
check "bash completes a parameter" bash_completes "chartproject read 1 10" "10 100 101 102 103 104"
check "bash completes a list of parameters" bash_completes "chartproject acquire --address 1 --parameters 3,99" "3,990 3,991"
cp tests/package/complete.zsh "$root/packages"
check "zsh completes a command and an option" \
  prints "timeout 60 zsh -f /packages/complete.zsh 'chartproject acq' --para" "chartproject acquire --parameters "
check "the service is well-formed" inside systemd-analyze verify /lib/systemd/system/chartproject-record@press.service
check "and locked up" inside systemd-analyze security --offline=yes --threshold=15 /lib/systemd/system/chartproject-record@press.service
recorded() {
  (locked_up /var/lib/chartproject/press "$(inside sed -n 's/^\(RECORDING=\)"\(.*\)"$/\1\2/p' \
    /usr/share/doc/chartproject/examples/example.conf)" "OPTIONS=--clock virtual")
  [ "$(points /var/lib/chartproject/press)" = 86400 ]
}
check "the service's recording, from the example" recorded
check "stopped, it keeps its points" stopped

echo "== and away"
inside dpkg-query -L chartproject | while read -r name; do [ -d "$root$name" ] || echo "$name"; done >"$log.files"
mine() { (cd "$root" && find home/user var/lib/chartproject -type f -exec sha256sum {} + | sort); }
mine >"$log.mine"
inside sh -c 'ln -s /lib/systemd/system/chartproject-record@.service /etc/systemd/system/chartproject-record@press.service'
# None of the package's files is left; after a purge no file anywhere that has its name, caches of others apart.
none_left() {
  local left
  left=$(while read -r name; do [ ! -e "$root$name" ] || echo "$name"; done <"$log.files"
    [ "$1" = remove ] || (cd "$root" && find . -xdev -iname '*chartproject*' -not -path './home/*' -not -path './packages/*' \
      -not -path './var/cache/*' -not -path './var/lib/chartproject*'))
  [ -z "$left" ] || { echo "$left"; return 1; }
}
for step in remove purge; do
  check "$step" inside apt-get -q -y "$step" chartproject
  check "leaves none of its files" none_left "$step"
done
check "but every file of the user and of the recordings" bash -c "diff '$log.mine' - <<<'$(mine)'"
echo "the packages are fine"
