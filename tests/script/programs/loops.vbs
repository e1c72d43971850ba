Sub Main()
s = "" : For i = 1 To 3 : s = s & i : Next : PrintString s & i '> 1234
s = "" : For i = 10 To 1 Step -3 : s = s & i & " " : Next
PrintString s & i                 '> 10 7 4 1 -2
s = "" : For i = 5 To 1 : s = s & "never" : Next : PrintString s & i '> 5
s = "" : For x = 0 To 1 Step 0.25 : s = s & x & " " : Next : PrintString s '> 0 0.25 0.5 0.75 1 
s = "" : For i = 1 To 10
If i = 3 Then Exit For
s = s & i
Next
PrintString s & i                 '> 123
n = 3 : For i = 1 To n : n = 10 : s = s & "x"
Next
PrintString s & i                 '> 12xxx4
For i = 1 To 10
i = i + 3 : s = i
Next
PrintString s & " " & i           '> 12 13
For i = i To i + 2 : s = s & "." : Next
PrintString s                     '> 12...
For i = "2" To "3.5" : s = i : Next
PrintString s & TypeName(s)       '> 3Double
For i = 32766 To 32768 : Next
PrintString i & TypeName(i)       '> 32769Long
For i = 1 To 2.5 : Next
PrintString i                     '> 3
s = 0
While s < 3
s = s + 1
Wend
PrintString s                     '> 3
Do While s < 5
s = s + 1
Loop
PrintString s                     '> 5
Do Until s = 7
s = s + 1
Loop
PrintString s                     '> 7
Do
s = s + 1
Loop While s < 7
PrintString s                     '> 8
Do
s = s + 1
Loop Until True
PrintString s                     '> 9
Do
s = s + 1
If s > 20 Then Exit Do
Loop
PrintString s                     '> 21
a = Array("p", "q", "r") : s = ""
For Each e In a
s = s & e
Next
PrintString s & e                 '> pqrr
Dim m(1, 2)
For i = 0 To 1 : For j = 0 To 2 : m(i, j) = i & j : Next : Next
s = "" : For Each e In m : s = s & e & " " : Next : PrintString s '> 00 10 01 11 02 12 
For Each e In a
For Each f In a
If f = "q" Then Exit For
s = e & f
Next
Next
PrintString s                     '> rp
For i = 5 To 1.5 Step -1 : s = i : Next
PrintString s & i                 '> 21
s = 0 : For i = 2147483646 To 2147483647 : s = s + 1 : Next
PrintString s & TypeName(i) & i   '> 2Double2147483648
For gi = 1 To 3 : Next
PrintString gi                    '> 4
countByReference i : PrintString i '> 3
On Error Resume Next
ReDim d(3)
For Each e In d
ReDim d(5)
Next
PrintString Err.Number : Err.Clear '> 10
For Each e In d
Erase d
Next
PrintString Err.Number & UBound(d) '> 103
End Sub
Dim gi
Sub countByReference(k)
For k = 1 To 2 : Next
End Sub
