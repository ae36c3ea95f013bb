// Four functions, each in its own graph.
#pragma once

#include "screens/graph_screen.h"

namespace verlink {

class frm_Plot3 : public Graph_Screen {
   public:
    frm_Plot3();

   protected:
    void Draw_Functions() override;
};

}  // namespace verlink
