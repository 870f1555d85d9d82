package com.quorvi.Quorvi;

import java.io.BufferedReader;
import java.io.File;
import java.io.FileReader;
import java.io.IOException;
import java.util.Locale;

/** What the kernel calls the phone's processor, and its highest frequency. Any thread. */
final class CpuName {
    /** How the kernels call the line, the better name first. */
    private static final String[] LINES = {"model name", "Processor", "Hardware"};

    private static final double KILOHERTZ_OF_A_GIGAHERTZ = 1e6;

    private final File names;
    private final File frequency;

    /**
     * @param names where the kernel describes the processor
     * @param frequency where it says its highest frequency, in kHz
     */
    CpuName(File names, File frequency) {
        this.names = names;
        this.frequency = frequency;
    }

    /** "ARMv7 Processor rev 2 (v7l) 1.0 GHz"; of what the kernel does not show there is nothing. */
    String text() {
        return (name() + " " + speed()).trim();
    }

    private String name() {
        for (String line : LINES) {
            String name = valueOf(line);
            if (!name.isEmpty()) {
                return name;
            }
        }
        return "";
    }

    private String valueOf(String name) {
        try {
            BufferedReader reader = new BufferedReader(new FileReader(names));
            try {
                for (String line = reader.readLine(); line != null; line = reader.readLine()) {
                    int colon = line.indexOf(':');
                    if (colon > 0 && line.substring(0, colon).trim().equals(name)) {
                        return line.substring(colon + 1).trim();
                    }
                }
            } finally {
                reader.close();
            }
        } catch (IOException e) {
            // Not shown.
        }
        return "";
    }

    private String speed() {
        try {
            BufferedReader reader = new BufferedReader(new FileReader(frequency));
            try {
                String line = reader.readLine();
                return line == null
                        ? ""
                        : String.format(
                                Locale.ROOT,
                                "%.1f GHz",
                                Long.parseLong(line.trim()) / KILOHERTZ_OF_A_GIGAHERTZ);
            } finally {
                reader.close();
            }
        } catch (IOException e) {
            return "";
        } catch (NumberFormatException e) {
            return "";
        }
    }
}
