// Each joint taken by its key: the box that a digit goes to, and what is taken where none is in sight.
#include "tests/screens/joint_hand_fixture.h"

namespace verlink::test {
namespace {

using JointKeys = JointHand;

TEST_F(JointKeys, ADigitGoesToTheBoxOfTheValueThatTheJointChanges) {
    const struct {
        const char* key;
        int box;
    } boxes[] = {{"A", 1}, {"B", 3}, {"C", 2}, {"P", 4}, {"O", 15}};
    for (const auto& [key, box] : boxes) {
        const int index = box;
        const char* const pressed = key;
        After_First_Picture([&] {
            const std::string before = Text_In(index);
            Key(pressed);
            Key("7");
            EXPECT_EQ(form.Focus(), &form.txt_Linkout[index]) << pressed;
            EXPECT_EQ(Text_In(index), "7") << pressed;
            EXPECT_FALSE(form.txt_Linkout[index].SelectedAll) << "the next digit is added";
            form.txt_Linkout[index].Text = before;
        });
    }
}

TEST_F(JointKeys, WithoutAPictureNoJointIsTaken) {
    After_First_Picture([&] {
        Enter(form, "txt_Linkout", 2, "0.01");
        for (const char* key : {"A", "B", "C", "P", "O", "J"}) {
            Key(key);
            EXPECT_FALSE(Picture().Lit.Get()) << key;
        }
    });
}

}  // namespace
}  // namespace verlink::test
