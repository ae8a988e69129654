#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ifaddrs.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "CoreSession.h"
#include "PanelPeer.h"
#include "plugin-core/panel/PanelSocket.h"
#include "plugin-core/storage/Locations.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The panel's socket must not be reachable from another machine, which has no token but all the
// time to guess one.
class PanelAddressTest : public testing::Test {
protected:
    PanelAddressTest() { EXPECT_EQ(0U, mSession.core.pGetSocketPort(&mPort)); }

    // The local addresses, as in the kernel's table, of the sockets that listen on the port.
    std::vector<std::string> ListListeningAddresses(const char* table) const
    {
        constexpr const char* kListening = "0A";
        std::vector<std::string> addresses;
        std::ifstream lines(table);
        std::string line;
        EXPECT_TRUE(std::getline(lines, line)) << table;  // the heading
        for (std::string number, local, remote, state; lines >> number >> local >> remote >> state;
             std::getline(lines, line)) {
            const size_t colon = local.find(':');
            const int port = std::stoi(local.substr(colon + 1), nullptr, 16);
            if (state == kListening && port == mPort) addresses.push_back(local.substr(0, colon));
        }
        return addresses;
    }

    // 0, or why no connection to the port at this address is possible.
    int Connect(in_addr address) const
    {
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        place.sin_addr = address;
        place.sin_port = htons(static_cast<uint16_t>(mPort));
        const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int result = connect(socket, reinterpret_cast<sockaddr*>(&place), sizeof place);
        const int reason = result == 0 ? 0 : errno;
        close(socket);
        return reason;
    }

    CoreSession mSession;
    int mPort = 0;
};

TEST_F(PanelAddressTest, TheSocketIsBoundToTheLoopbackAddress)
{
    char loopback[9];
    (void)std::snprintf(loopback, sizeof loopback, "%08X", htonl(INADDR_LOOPBACK));
    EXPECT_THAT(ListListeningAddresses("/proc/self/net/tcp"), ElementsAre(loopback));
    if (std::ifstream("/proc/self/net/tcp6")) {
        EXPECT_THAT(ListListeningAddresses("/proc/self/net/tcp6"), IsEmpty());
    }
}

TEST_F(PanelAddressTest, NoOtherAddressOfTheMachineAcceptsAConnection)
{
    EXPECT_EQ(0, Connect({htonl(INADDR_LOOPBACK)}));
    // All of 127.0.0.0/8 is this machine, so a socket bound to every address would accept this.
    EXPECT_EQ(ECONNREFUSED, Connect({htonl(INADDR_LOOPBACK + 1)}));
    ifaddrs* all = nullptr;
    ASSERT_EQ(0, getifaddrs(&all));
    const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> interfaces(all, freeifaddrs);
    for (const ifaddrs* each = all; each != nullptr; each = each->ifa_next) {
        if (each->ifa_addr == nullptr || each->ifa_addr->sa_family != AF_INET) continue;
        const in_addr address = reinterpret_cast<const sockaddr_in*>(each->ifa_addr)->sin_addr;
        if (address.s_addr == htonl(INADDR_LOOPBACK)) continue;
        EXPECT_EQ(ECONNREFUSED, Connect(address)) << each->ifa_name;
    }
}

TEST_F(PanelAddressTest, ThePortIsThatOfTheLastTimeUnlessItIsUsed)
{
    const PanelPeer page(mPort);
    EXPECT_EQ(0U, mSession.core.pProcessPanelMessages(1));
    mSession.Restart();
    int again = 0;
    EXPECT_EQ(0U, mSession.core.pGetSocketPort(&again));
    EXPECT_EQ(mPort, again);
    // A second program has another one, and doesn't take it from the first.
    plugincore::Database database(plugincore::GetLocations().database);
    EXPECT_EQ(mPort, plugincore::LoadPanelPort(database));
    const plugincore::PanelListener second(plugincore::LoadPanelPort(database));
    EXPECT_NE(mPort, second.GetPort());
    for (const int bad : {0, 1, 1023, -1}) {
        plugincore::StorePanelPort(database, static_cast<uint16_t>(bad));
        EXPECT_EQ(bad == -1 ? 65535 : 0, plugincore::LoadPanelPort(database)) << bad;
    }
}

}  // namespace
