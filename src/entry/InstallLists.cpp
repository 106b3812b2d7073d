#include "entry/InstallLists.h"

#include "entry/frmList.h"
#include "link/HandOvers.h"
#include "platform/controls/Desktop.h"

namespace quorvel {

void InstallListWindows() {
  Ask().ShowList = [] {
    frmList& list = desktop().FormObject<frmList>();
    const auto keep = list.shared_from_this();
    try {
      list.ShowModal();
    } catch (const RuntimeError&) {
      list.Unload();  // not loaded whole: the host is answered all the same
      throw;
    }
  };
}

}  // namespace quorvel
