package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.quorvi.Quorvi.wire.AgentCommand;

import org.junit.Test;
import org.w3c.dom.Element;
import org.w3c.dom.NodeList;

import java.io.File;
import java.util.Set;
import java.util.TreeSet;

import javax.xml.parsers.DocumentBuilderFactory;

public class PermissionsTest extends OnPhones {
    @Test
    public void theManifestAsksForWhatCommandsNeedAndNothingElse() throws Exception {
        NodeList elements =
                DocumentBuilderFactory.newInstance()
                        .newDocumentBuilder()
                        .parse(new File(System.getProperty("agent.manifest")))
                        .getElementsByTagName("uses-permission");
        Set<String> asked = new TreeSet<>();
        for (int i = 0; i < elements.getLength(); ++i) {
            String name = ((Element) elements.item(i)).getAttribute("android:name");
            assertTrue(name + " stands twice", asked.add(name));
        }
        Set<String> needed = new TreeSet<>();
        for (Permissions permission : Permissions.values()) {
            needed.add(permission.androidName);
        }
        assertEquals(needed, asked);
    }

    @Test
    public void everyPermissionIsForACommandThatTheAgentAnswers() {
        for (Permissions permission : Permissions.values()) {
            boolean isNeeded = false;
            for (AgentCommand command : permission.commands) {
                isNeeded |= Commands.of(phone()).answers(command);
            }
            assertTrue(permission.androidName, isNeeded);
            assertFalse(permission.commands.isEmpty());
        }
    }
}
