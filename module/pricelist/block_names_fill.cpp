#include "common/drawing_objects.h"
#include "pricelist/block_names.h"

int BlockNamesCont::Fill() {
    Clear();
    for (const std::wstring& name : corvanes::block_names()) {
        if (name[0] != L'*') {
            Add(name.c_str());
        }
    }
    return 1;
}
