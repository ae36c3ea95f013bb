// What the eye would find wrong with a window or a sheet of paper.
#pragma once

#include <QString>
#include <QWidget>
#include <string>

namespace verlink::test {

/// The words of every visible label and button have the room they take.
void Expect_Nothing_Clipped(const QWidget& window);

/// The file is one page with a picture on it that fills the page one way or the other.
void Expect_One_Filled_Page(const std::string& pdf);

}  // namespace verlink::test
