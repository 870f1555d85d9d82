#include "app/process/PhoneSuiteApp.h"

int main(int argc, char** argv) {
    return quorvi::CPhoneSuiteApp(argc, argv).Run();
}
