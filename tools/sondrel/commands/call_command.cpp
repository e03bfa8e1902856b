// sondrel call NAME [ARG...]
#include "base/trouble.h"
#include "readings/single_call.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <iostream>

namespace tool {

int CallExport(const Options& options) {
    const SingleCall call(options);
    Progress progress;
    progress.Begin("calling " + std::string(call.Row().name));
    const Answer answer = call.Make();
    progress.Clear();
    call.GiveBackSession(answer);
    interrupt::Check();
    if (call.Row().shape != &shape::Nothing) {
        std::cout << answer.bare << '\n';
    }
    const Judgement judgement = Judge(call.Row(), answer);
    if (judgement.status != Status::Ok) {
        std::cerr << "sondrel: " << TextOf(judgement.status) << (judgement.meaning.empty() ? "" : ": ")
                  << judgement.meaning << '\n';
    }
    return judgement.status == Status::Faulty ? ExitFault : ExitDone;
}

} // namespace tool
