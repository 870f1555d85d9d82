package com.quorvi.Quorvi;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;

import org.junit.Test;
import org.objectweb.asm.ClassReader;
import org.objectweb.asm.ClassVisitor;
import org.objectweb.asm.MethodVisitor;
import org.objectweb.asm.Opcodes;

import java.io.File;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/**
 * What the agent asks of Android and a phone has not ends it there; the compiler knows only the newest
 * Android. So all of it is looked up in Android 4.4, the oldest that the tests have.
 */
public class NewerAndroidTest {
    /** Each looks at the phone's level first, or is called by who has. */
    private static final List<String> GUARDED =
            Arrays.asList(
                    "AgentService.builder",
                    "AgentService.makeChannel",
                    "Quorvi.askForPermissions",
                    "Quorvi.mayWriteSettings",
                    "Quorvi.startAgent");

    private final AndroidClasses classes = new AndroidClasses();
    private final Set<String> asking = new TreeSet<>();

    @Test
    public void whatAndroid44DoesNotHaveIsAskedForBehindALookAtThePhonesLevel() throws Exception {
        for (File archive : new File(System.getProperty("robolectric.dependency.dir")).listFiles()) {
            if (archive.getName().contains("-4.4_")) {
                classes.learnArchive(archive);
            }
        }
        List<ClassReader> agent = agent();
        assertFalse(agent.isEmpty());
        for (ClassReader one : agent) {
            classes.learn(one);
        }
        for (ClassReader one : agent) {
            look(one);
        }
        assertEquals(new TreeSet<>(GUARDED), asking);
    }

    private static List<ClassReader> agent() throws IOException {
        Path folder =
                Paths.get(
                        Limit.class.getProtectionDomain().getCodeSource().getLocation().getPath());
        List<ClassReader> all = new ArrayList<>();
        try (Stream<Path> files = Files.walk(folder)) {
            for (Path file : files.collect(Collectors.toList())) {
                if (file.toString().endsWith(".class")) {
                    all.add(new ClassReader(Files.readAllBytes(file)));
                }
            }
        }
        return all;
    }

    private void look(ClassReader reader) {
        String name = reader.getClassName();
        String self = name.substring(name.lastIndexOf('/') + 1);
        reader.accept(
                new ClassVisitor(Opcodes.ASM9) {
                    @Override
                    public MethodVisitor visitMethod(
                            int access, String method, String type, String generic, String[] thrown) {
                        return new Looking(self + "." + method);
                    }
                },
                ClassReader.SKIP_DEBUG);
    }

    private final class Looking extends MethodVisitor {
        private final String method;

        Looking(String method) {
            super(Opcodes.ASM9);
            this.method = method;
        }

        private void expect(boolean isThere) {
            if (!isThere) {
                asking.add(method);
            }
        }

        @Override
        public void visitMethodInsn(
                int code, String owner, String name, String type, boolean isInterface) {
            expect(classes.has(owner, name, type));
        }

        @Override
        public void visitFieldInsn(int code, String owner, String name, String type) {
            expect(classes.has(owner, name, type));
        }

        @Override
        public void visitTypeInsn(int code, String type) {
            expect(classes.has(type));
        }
    }
}
