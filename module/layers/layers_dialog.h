// LayersDialog, the dialog "Layers": it lists the drawing's layers, switches them on and off, freezes and locks them,
// and counts the entities on them.
#pragma once

#include <afxwin.h>

#include "layers/layer_grid.h"

class LayersDialog : public CDialog, private corvanes::GridOwner {
  public:
    explicit LayersDialog(CWnd* parent);

  protected:
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnInitDialog() override;

  private:
    void Close() override { EndDialog(IDCANCEL); }

    LayerGrid grid_{this};
};
