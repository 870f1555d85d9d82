package com.quorvi.Quorvi.wire;

import java.io.IOException;

/** Answers a few commands by what was asked: enough to see each form of request arrive. */
final class EchoGroup implements CommandGroup {
    @Override
    public AgentCommand[] commands() {
        return new AgentCommand[] {
            AgentCommand.AGENT_VERSION,
            AgentCommand.LIST_CALLS,
            AgentCommand.LIST_CONTACTS,
            AgentCommand.READ_CONTACT,
            AgentCommand.DELETE_CALLS,
            AgentCommand.READ_CONVERSATION,
            AgentCommand.RUN_APPLICATION,
            AgentCommand.CLEAN,
        };
    }

    @Override
    public void answer(AgentCommand command, Exchange exchange)
            throws IOException, MalformedRequest {
        switch (command) {
            case AGENT_VERSION:
                exchange.reply.word(20);
                break;
            case LIST_CALLS:
                break;
            case LIST_CONTACTS:
                exchange.reply.raw(new byte[8 * 1024 * 1024]);
                break;
            case READ_CONTACT:
                exchange.expectOneItem();
                exchange.reply.uint64(exchange.request.id());
                break;
            case DELETE_CALLS:
                for (long id : exchange.ids()) {
                    exchange.reply.uint64(id);
                }
                break;
            case READ_CONVERSATION:
                exchange.reply.uint32(exchange.request.uint32());
                break;
            case RUN_APPLICATION:
                exchange.expectOneItem();
                exchange.reply.text(exchange.request.text());
                break;
            default:
                for (int flag = 0; flag < 3; ++flag) {
                    exchange.reply.uint32(exchange.request.uint8());
                }
                for (long i = 0; i < exchange.items; ++i) {
                    exchange.reply.text(exchange.request.text());
                }
        }
        exchange.request.end();
    }
}
