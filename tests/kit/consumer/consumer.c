#include <vesk_sondrel.h>

#include <stdio.h>

int main(void) {
    static VeskChar16 text[26];
    GetSENSOR_WMI_Data(text);
    printf("interface %u, sensor %c\n", (unsigned)GetIoDllVersion(), (char)text[0]);
    return 0;
}
