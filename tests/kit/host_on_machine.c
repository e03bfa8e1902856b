/* examples/host.c on a machine of the test's choice: its main is called host_main here. */
#include "vesk_sondrel_machine.h"

#include <stdio.h>

int host_main(void);

int main(int count, char** arguments) {
    char problem[512] = "no machine named";
    if (count != 2 || VeskMachine_Start(arguments[1], ":memory:", problem, sizeof problem) != 1) {
        fprintf(stderr, "%s\n", problem);
        return 2;
    }
    return host_main();
}
