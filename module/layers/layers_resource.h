// Numbers of the Layers dialog and its controls.
#pragma once

#define IDD_LAYERS 101
#define IDC_LAYERS_GRID 201
