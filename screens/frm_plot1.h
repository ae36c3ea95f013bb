// All chosen functions in one graph.
#pragma once

#include "screens/graph_screen.h"

namespace verlink {

class frm_Plot1 : public Graph_Screen {
   public:
    frm_Plot1();

   protected:
    void Draw_Functions() override;
};

}  // namespace verlink
