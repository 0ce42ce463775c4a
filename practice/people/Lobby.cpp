#include "practice/people/Lobby.h"

namespace halyard {

std::string_view LobbyScript() {
    return R"(# The lobby. Whoever first asks for the room owns it, so a bot that joins it can ban.
room lobby
here alice, Harbour Master, roomboss
clock start
repeat 180
3 alice says good morning, everyone
8 Harbour Master says morning alice, calm water today
14 carol enters
17 carol says hi all, is the new bot here yet?
24 alice says it should be. try it, roomboss
30 roomboss says help
40 spammer%n enters
43 spammer%n says FREE STUFF at my page, visit now!!!
45 spammer%n says FREE STUFF at my page, visit now!!!
50 roomboss says ban spammer%n
60 carol says thank you
66 visitor%n enters
70 visitor%n says hello, who runs this room?
78 Harbour Master says roomboss does, and a bot that keeps it tidy
90 rowdy%n enters
93 rowdy%n says this place is d*mn boring
97 rowdy%n says you are all lubbers
104 roomboss says kick rowdy%n
112 rowdy%n enters
116 rowdy%n says fine, I will behave
125 10020030 enters
129 10020030 says greetings from the network of numbers
138 visitor%n leaves
144 carol leaves
150 roomboss says status
158 10020030 leaves
164 rowdy%n leaves
166 spammer%n leaves
)";
}

} // namespace halyard
