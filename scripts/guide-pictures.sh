#!/usr/bin/env bash
# scripts/guide-pictures.sh: makes the pictures of docs/USER-GUIDE.md and README.md anew, from the
# tour.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

install_packages scripts/packages-guide.txt
tour="$(mktemp -d)"
trap 'rm -rf "$tour"' EXIT
./run.sh --tour "$tour" >/dev/null

# The colour of the frames that the tour draws around dialogs (platform/qt/Screenshot.cpp): where it
# is tells where the dialogs are.
frame='#455a64'

# picture NAME STEP whole|dialog: the picture of a step of the tour, or the part with the dialogs.
picture() {
  local source box=()
  source="$(ls "$tour"/[0-9][0-9]-"$2".png)"
  [ "$3" = whole ] ||
    box=(-crop "$(convert "$source" -fill white +opaque "$frame" -format '%@' info:)" +repage)
  convert "$source" "${box[@]}" -strip -colors 128 "PNG8:docs/pictures/$1.png"
}

picture bookmarks bookmark-dragged dialog
picture command-buttons command-buttons dialog
picture connect connect-dialog dialog
picture data-entry record-changed whole
picture export-choice export-choice dialog
picture export-parameters export-command-added dialog
picture fax fax dialog
picture field-menu field-menu whole
picture field-refused field-refused whole
picture function-keys function-keys dialog
picture help field-help dialog
picture list list dialog
picture locator locator dialog
picture main-menu main-menu whole
picture password password dialog
picture report report-next-match dialog
picture terminal inquiry-record whole
picture terminal-colors terminal-colors dialog
picture terminal-settings terminal-settings dialog
