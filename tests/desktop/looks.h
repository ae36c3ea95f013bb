// What the eye would find wrong with a window or a sheet of paper.
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

namespace verlink::test {

/// The words of every visible label and button have the room they take.
void Expect_Nothing_Clipped(const QWidget& window);

/// The file is one page with a picture on it that fills the page one way or the other.
void Expect_One_Filled_Page(const std::string& pdf);

/// What is to be read on each page of the file, lines as they lie.
std::vector<std::string> Words_On_Paper(const std::string& pdf);

}  // namespace verlink::test
