package com.quorvi.Quorvi;

import org.objectweb.asm.ClassReader;
import org.objectweb.asm.ClassVisitor;
import org.objectweb.asm.FieldVisitor;
import org.objectweb.asm.MethodVisitor;
import org.objectweb.asm.Opcodes;

import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.zip.ZipEntry;
import java.util.zip.ZipFile;

/** What classes have, by their names in class files. */
final class AndroidClasses {
    private static final Set<String> OF_EVERY_OBJECT =
            new HashSet<>(
                    Arrays.asList(
                            "<init>", "getClass", "hashCode", "equals", "toString", "notify",
                            "notifyAll", "wait"));

    private static final class Known {
        final Set<String> members = new HashSet<>();
        final List<String> above = new ArrayList<>();
    }

    private final Map<String, Known> known = new HashMap<>();

    void learnArchive(File file) throws IOException {
        try (ZipFile archive = new ZipFile(file)) {
            for (ZipEntry entry : Collections.list(archive.entries())) {
                if (entry.getName().endsWith(".class")) {
                    try (InputStream in = archive.getInputStream(entry)) {
                        learn(new ClassReader(in));
                    }
                }
            }
        }
    }

    void learn(ClassReader reader) {
        Known one = new Known();
        one.above.addAll(Arrays.asList(reader.getInterfaces()));
        if (reader.getSuperName() != null) {
            one.above.add(reader.getSuperName());
        }
        reader.accept(
                new ClassVisitor(Opcodes.ASM9) {
                    @Override
                    public MethodVisitor visitMethod(
                            int access, String name, String type, String generic, String[] thrown) {
                        one.members.add(name + type);
                        return null;
                    }

                    @Override
                    public FieldVisitor visitField(
                            int access, String name, String type, String generic, Object value) {
                        one.members.add(name + type);
                        return null;
                    }
                },
                ClassReader.SKIP_CODE);
        known.put(reader.getClassName(), one);
    }

    /** Archives of Android leave java.lang out: what is of it counts as there. */
    boolean has(String owner) {
        return known.containsKey(owner) || owner.startsWith("java/lang/") || owner.startsWith("[");
    }

    /** Whether the class has that field or method, or inherits it. */
    boolean has(String owner, String name, String type) {
        if (owner.equals("java/lang/Object")) {
            return OF_EVERY_OBJECT.contains(name);
        }
        Known one = known.get(owner);
        if (one == null) {
            return has(owner);
        }
        if (one.members.contains(name + type)) {
            return true;
        }
        // An interface has what every object has, and class files do not say so.
        boolean isThere = OF_EVERY_OBJECT.contains(name) && !name.equals("<init>");
        for (String above : name.equals("<init>") ? Collections.<String>emptyList() : one.above) {
            isThere |= has(above, name, type);
        }
        return isThere;
    }
}
