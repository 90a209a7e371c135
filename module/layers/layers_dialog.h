// The dialog "Layers": what layers the drawing has, which of them are on, frozen and locked, and what stands on them.
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
