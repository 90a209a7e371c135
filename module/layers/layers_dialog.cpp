#include "layers/layers_dialog.h"

#include "layers_resource.h"

LayersDialog::LayersDialog(CWnd* parent) : CDialog(IDD_LAYERS, parent) {}

BOOL LayersDialog::PreTranslateMessage(MSG* message) {
    return grid_.TakesKey(*message) || CDialog::PreTranslateMessage(message) ? TRUE : FALSE;
}

BOOL LayersDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    grid_.AttachGrid(this, IDC_LAYERS_GRID);
    grid_.FillLayers();
    return TRUE;
}
