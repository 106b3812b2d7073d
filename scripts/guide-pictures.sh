#!/usr/bin/env bash
# scripts/guide-pictures.sh: makes the pictures of docs/USER-GUIDE.md and README.md anew, from the
# tour.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages scripts/packages-guide.txt
tour="$(mktemp -d)"
home=/tmp/quorvel  # stands in titles and boxes
mkdir "$home"
trap 'rm -rf "$tour" "$home"' EXIT
QUORVEL_TOUR_HOME="$home" ./run.sh --tour "$tour" >/dev/null

# picture NAME STEP whole|dialog: the picture of a step of the tour, or the dialog in front alone,
# whose place the picture itself tells (platform/qt/Screenshot.h).
picture() {
  local source box=()
  source="$(ls "$tour"/[0-9][0-9]-"$2".png)"
  if [ "$3" = dialog ]; then
    box=(-crop "$(identify -format '%[front]' "$source")" +repage)
  fi
  convert "$source" "${box[@]}" -strip +dither -colors 256 "PNG8:docs/pictures/$1.png"
}

picture bookmarks bookmark-dragged dialog
picture command-buttons command-buttons dialog
picture connect connect-dialog dialog
picture data-entry record-changed whole
picture export-choice export-choice dialog
picture export-parameters export-command-added dialog
picture fax fax dialog
picture fax-settings fax-settings dialog
picture field-menu field-menu whole
picture field-refused field-refused whole
picture function-keys function-keys dialog
picture help field-help dialog
picture image image dialog
picture key-entry screen-key-entry whole
picture list list dialog
picture locator locator dialog
picture main-menu main-menu whole
picture message message-box dialog
picture password password dialog
picture report report-next-match dialog
picture terminal inquiry-record whole
picture terminal-colors terminal-colors dialog
picture terminal-font terminal-font dialog
picture terminal-settings terminal-settings dialog
